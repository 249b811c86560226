// Sockets and the loop that waits for them.
#include "Server.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>

namespace AtModem {

namespace {

constexpr int backlog = 16;
constexpr std::ptrdiff_t maxPeersOfAKind =
    64; // so that whoever fills the port does not lock out the modem's owner
constexpr std::size_t maxLine = 4096;
/** Who does not read what it is sent is cut off. */
constexpr std::size_t maxUnsent = 1U << 20;

/**
 * Whether the first line, or what there is of it, is that of a web browser. Any page could lead one here, and say
 * commands behind its headers. Pages may also choose methods of their own.
 */
bool isWebRequest(std::string_view line)
{
    constexpr std::string_view secured = "\x16\x03";
    constexpr std::array<std::string_view, 5> methods = {"GET ", "POST ", "PUT ", "HEAD ", "OPTIONS "};
    const auto beginsWith = [line](std::string_view begin) { return line.substr(0, begin.size()) == begin; };
    return beginsWith(secured) || std::any_of(methods.begin(), methods.end(), beginsWith)
        || line.find(" HTTP/") != std::string_view::npos;
}

template <typename Address>
bool bindAndListen(const Descriptor &socket, const Address &address)
{
    return bind(socket.number(), reinterpret_cast<const sockaddr *>(&address), sizeof address) == 0
        && listen(socket.number(), backlog) == 0;
}

} // namespace

Server::Server(Modem &modem, Prompt &prompt)
    : m_modem(modem)
    , m_prompt(prompt)
{
}

Server::~Server()
{
    for (const auto &peer : m_peers) {
        if (peer->session)
            peer->session->disconnect();
    }
    if (!m_controlPath.empty())
        unlink(m_controlPath.c_str());
}

bool Server::listenForCommands(const std::string &address, unsigned short port)
{
    sockaddr_in place = {};
    place.sin_family = AF_INET;
    place.sin_port = htons(port);
    if (inet_pton(AF_INET, address.c_str(), &place.sin_addr) != 1) {
        errno = EINVAL;
        return false;
    }
    m_commands = Descriptor(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    const int on = 1;
    if (!m_commands || setsockopt(m_commands.number(), SOL_SOCKET, SO_REUSEADDR, &on, sizeof on) != 0
        || !bindAndListen(m_commands, place))
        return false;
    socklen_t size = sizeof place;
    if (getsockname(m_commands.number(), reinterpret_cast<sockaddr *>(&place), &size) != 0)
        return false;
    m_port = ntohs(place.sin_port);
    return true;
}

bool Server::listenForControl(const std::string &path)
{
    sockaddr_un place = {};
    place.sun_family = AF_UNIX;
    if (path.size() >= sizeof place.sun_path) {
        errno = ENAMETOOLONG;
        return false;
    }
    std::memcpy(place.sun_path, path.data(), path.size());
    m_control = Descriptor(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    // Whoever may connect may do anything to the phone, so the socket is its owner's alone.
    const mode_t mask = umask(S_IRWXG | S_IRWXO);
    const bool listening = m_control && bindAndListen(m_control, place);
    umask(mask);
    if (listening)
        m_controlPath = path;
    return listening;
}

void Server::watch(int descriptor, std::function<bool()> reader)
{
    m_watched[descriptor] = std::move(reader);
}

void Server::acceptPeer(const Descriptor &listener, bool control)
{
    Descriptor socket(accept4(listener.number(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
    if (!socket || !makeRoom(control))
        return;
    auto peer = std::make_unique<Peer>();
    peer->socket = std::move(socket);
    if (!control) {
        const int on = 1;
        setsockopt(peer->socket.number(), IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
        peer->session = m_modem.connect([target = peer.get()](std::string_view bytes) {
            if (target->output.size() < maxUnsent)
                target->output += bytes;
        });
    }
    m_peers.push_back(std::move(peer));
}

/** At the limit the one goes that has been there longest without a whole line. False when all have spoken. */
bool Server::makeRoom(bool control)
{
    const auto isOfKind = [control](const auto &peer) { return (peer->session == nullptr) == control; };
    if (std::count_if(m_peers.begin(), m_peers.end(), isOfKind) < maxPeersOfAKind)
        return true;
    const auto idle = std::find_if(m_peers.begin(), m_peers.end(),
                                   [&](const auto &peer) { return isOfKind(peer) && !peer->hasSpoken; });
    if (idle == m_peers.end())
        return false;
    if ((*idle)->session)
        (*idle)->session->disconnect();
    m_peers.erase(idle);
    return true;
}

/** False for who has nothing to say to a modem. */
bool Server::takeCommandBytes(Peer &peer, std::string_view bytes)
{
    if (!peer.hasSpoken) {
        const std::size_t end = bytes.find('\r');
        peer.line += bytes.substr(0, end);
        if (isWebRequest(peer.line) || peer.line.size() > maxLine) {
            m_modem.log("<", "no command line, so the connection ends");
            return false;
        }
        peer.hasSpoken = end != std::string_view::npos;
    }
    peer.session->receive(bytes);
    return true;
}

/** One line in; what it came to out, closed by a line that says ok or what was wrong. */
void Server::takeControlBytes(Peer &peer, std::string_view bytes)
{
    for (const char byte : bytes) {
        if (byte != '\n') {
            if (peer.line.size() < maxLine)
                peer.line += byte;
            continue;
        }
        peer.hasSpoken = true;
        const Prompt::Reply reply = m_prompt.run(std::exchange(peer.line, {}));
        peer.output += reply.text;
        if (reply.status != Prompt::Status::Mistake)
            peer.output += "ok\n";
        if (reply.status == Prompt::Status::Quit)
            stop();
    }
}

bool Server::flush(Peer &peer)
{
    while (!peer.output.empty() && !isSilent(peer)) {
        const ssize_t sent =
            send(peer.socket.number(), peer.output.data(), peer.output.size(), MSG_NOSIGNAL | MSG_DONTWAIT);
        if (sent < 0)
            return errno == EAGAIN || errno == EINTR;
        peer.output.erase(0, static_cast<std::size_t>(sent));
    }
    return !peer.closing;
}

bool Server::serve(Peer &peer, short events)
{
    if ((events & (POLLIN | POLLHUP | POLLERR)) != 0 && !peer.closing) {
        std::array<char, 4096> buffer = {};
        const ssize_t received = recv(peer.socket.number(), buffer.data(), buffer.size(), MSG_DONTWAIT);
        if (received == 0)
            peer.closing = true; // half closed: what was asked is still answered
        else if (received < 0 && errno != EAGAIN && errno != EINTR)
            return false;
        if (received > 0) {
            const std::string_view bytes(buffer.data(), static_cast<std::size_t>(received));
            if (!peer.session)
                takeControlBytes(peer, bytes);
            else if (!takeCommandBytes(peer, bytes))
                return false;
        }
    }
    return flush(peer) && peer.output.size() < maxUnsent;
}

int Server::timeout() const
{
    const auto due = m_modem.agenda().nextDue();
    if (!due)
        return -1;
    const auto rest = std::chrono::ceil<std::chrono::milliseconds>(*due - std::chrono::steady_clock::now());
    constexpr long long longest = 60000;
    return static_cast<int>(std::clamp<long long>(rest.count(), 0, longest));
}

void Server::run()
{
    m_modem.agenda().advanceTo(std::chrono::steady_clock::now());
    while (!m_stopped) {
        std::vector<pollfd> waited;
        waited.push_back({m_commands.number(), POLLIN, 0});
        waited.push_back({m_control.number(), POLLIN, 0});
        for (const auto &peer : m_peers) {
            // Nothing more comes of one that is closing, and its end would be found again and again.
            const int toRead = peer->closing ? 0 : POLLIN;
            const int toWrite = peer->output.empty() ? 0 : POLLOUT;
            // What a silent modem is sent stays in the socket, even the news that nobody is there any more.
            waited.push_back(
                {isSilent(*peer) ? -1 : peer->socket.number(), static_cast<short>(toRead | toWrite), 0});
        }
        const std::size_t watchedFrom = waited.size();
        for (const auto &[descriptor, reader] : m_watched)
            waited.push_back({descriptor, POLLIN, 0});
        if (poll(waited.data(), waited.size(), timeout()) < 0 && errno != EINTR)
            return;
        m_modem.agenda().advanceTo(std::chrono::steady_clock::now());

        constexpr std::size_t firstPeer = 2;
        for (std::size_t position = firstPeer; position < watchedFrom; ++position) {
            auto &peer = m_peers[position - firstPeer];
            if (isSilent(*peer) || serve(*peer, waited[position].revents))
                continue;
            if (peer->session)
                peer->session->disconnect();
            peer.reset();
        }
        m_peers.erase(std::remove(m_peers.begin(), m_peers.end(), nullptr), m_peers.end());
        if (waited[0].revents != 0)
            acceptPeer(m_commands, false);
        if (waited[1].revents != 0)
            acceptPeer(m_control, true);
        for (std::size_t position = watchedFrom; position < waited.size(); ++position) {
            const auto watched = m_watched.find(waited[position].fd);
            if (waited[position].revents != 0 && watched != m_watched.end() && !watched->second())
                m_watched.erase(watched);
        }
        // What the last line did may have been told to others.
        for (const auto &peer : m_peers)
            flush(*peer);
    }
    for (const auto &peer : m_peers)
        flush(*peer);
}

} // namespace AtModem
