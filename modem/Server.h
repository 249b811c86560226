// The modem's doors: the TCP port for AT commands and the control socket for its own commands.
#pragma once

#include "Descriptor.h"
#include "Modem.h"
#include "Prompt.h"

#include <poll.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace AtModem {

class Server {
public:
    Server(Modem &modem, Prompt &prompt);
    ~Server();

    /** @name Opening the doors; false with errno set when one cannot be opened
     * @{ */
    bool listenForCommands(const std::string &address, unsigned short port);
    bool listenForControl(const std::string &path);
    /** @} */

    /** The port that is listened on. */
    unsigned short port() const { return m_port; }

    /** Another descriptor to wait for; the reader returns false when it wants to be heard no more. */
    void watch(int descriptor, std::function<bool()> reader);

    /** Serves until it is told to stop. */
    void run();
    void stop() { m_stopped = true; }

private:
    /** One connected peer. */
    struct Peer {
        Descriptor socket;
        std::shared_ptr<Session> session; ///< null for a control connection
        std::string line;                 ///< a control line; of a command connection the first line only
        std::string output;
        bool hasSpoken = false; ///< has sent a whole line
        bool closing = false;   ///< to be closed once it was sent everything
    };

    void acceptPeer(const Descriptor &listener, bool control);
    bool makeRoom(bool control);
    bool takeCommandBytes(Peer &peer, std::string_view bytes);
    bool serve(Peer &peer, short events);
    void takeControlBytes(Peer &peer, std::string_view bytes);
    bool isSilent(const Peer &peer) const { return m_modem.silent && peer.session; }
    bool flush(Peer &peer);
    int timeout() const;

    Modem &m_modem;
    Prompt &m_prompt;
    Descriptor m_commands;
    Descriptor m_control;
    std::string m_controlPath;
    unsigned short m_port = 0;
    std::vector<std::unique_ptr<Peer>> m_peers;
    std::map<int, std::function<bool()>> m_watched;
    bool m_stopped = false;
};

} // namespace AtModem
