// Telling a running modem something.
#include "ControlClient.h"

#include "Server.h"

#include <sys/socket.h>
#include <sys/time.h>
#include <sys/un.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>

#include <editline/readline.h>

namespace AtModem {

namespace {

constexpr int noModem = 1;
constexpr int mistaken = 2;
constexpr time_t deadline = 10; // seconds

int complain(const std::string &controlPath)
{
    std::fprintf(stderr, "error: %s: %s\n", controlPath.c_str(), std::strerror(errno));
    return noModem;
}

} // namespace

int tellModem(const std::string &controlPath, const std::string &line)
{
    sockaddr_un place = {};
    place.sun_family = AF_UNIX;
    if (controlPath.size() >= sizeof place.sun_path) {
        errno = ENAMETOOLONG;
        return complain(controlPath);
    }
    std::memcpy(place.sun_path, controlPath.data(), controlPath.size());
    const Descriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    const timeval time = {deadline, 0};
    const std::string request = line + '\n';
    if (!socket || setsockopt(socket.number(), SOL_SOCKET, SO_RCVTIMEO, &time, sizeof time) != 0
        || connect(socket.number(), reinterpret_cast<const sockaddr *>(&place), sizeof place) != 0
        || send(socket.number(), request.data(), request.size(), MSG_NOSIGNAL)
            != static_cast<ssize_t>(request.size())
        || shutdown(socket.number(), SHUT_WR) != 0)
        return complain(controlPath);
    std::string reply;
    std::array<char, 4096> buffer = {};
    ssize_t received = 0;
    while ((received = recv(socket.number(), buffer.data(), buffer.size(), 0)) > 0)
        reply.append(buffer.data(), static_cast<std::size_t>(received));
    if (received < 0)
        return complain(controlPath);
    constexpr std::string_view done = "ok\n";
    const bool accepted =
        reply.size() >= done.size() && reply.compare(reply.size() - done.size(), done.size(), done) == 0;
    if (accepted)
        reply.erase(reply.size() - done.size());
    std::fputs(reply.c_str(), accepted ? stdout : stderr);
    return accepted ? 0 : mistaken;
}

int runRemotePrompt(const std::string &controlPath)
{
    const bool interactive = isatty(STDIN_FILENO) == 1;
    rl_readline_name = "kvq-modem";
    using_history();
    int status = 0;
    while (true) {
        const std::unique_ptr<char, decltype(&std::free)> line(readline(interactive ? "modem> " : ""),
                                                               &std::free);
        if (!line)
            return interactive ? 0 : status;
        const std::string text = line.get();
        if (text.find_first_not_of(' ') == std::string::npos)
            continue;
        if (interactive && maskSecrets(text) == text)
            add_history(line.get());
        const int outcome = tellModem(controlPath, text);
        if (outcome == noModem || text == "quit" || text == ".quit")
            return outcome;
        status = std::max(status, outcome);
    }
}

} // namespace AtModem
