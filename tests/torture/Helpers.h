// What the parts of the torture have in common.
#pragma once

#include "SettingsStore.h"

#include <QString>

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace Torture {

inline constexpr int collector = 0; // its address stands for a collecting object

inline SettingsStore::Name name(const char *key)
{
    return {4, QStringLiteral("Setup"), QString::fromLatin1(key)};
}

/** A store as a process that has just started has it. */
struct Fresh : SettingsStore {
    explicit Fresh(const std::string &file) { setFile(QString::fromStdString(file)); }

    int number(const char *key) { return readInteger(name(key), Type::Int).value_or(-1); }
    QString text(const char *key) { return readText(name(key)).value_or(QString()); }
    bool put(const char *key, int value, const void *owner = nullptr)
    {
        return writeInteger(name(key), Type::Int, value, owner);
    }
    bool put(const char *key, const QString &value, const void *owner = nullptr)
    {
        return writeText(name(key), value, owner);
    }
};

inline std::string bytesOf(const std::string &file)
{
    std::ostringstream bytes;
    bytes << std::ifstream(file, std::ios::binary).rdbuf();
    return bytes.str();
}

template <typename Body>
pid_t inChild(Body body)
{
    const pid_t child = fork();
    if (child == 0) {
        body();
        std::_Exit(0);
    }
    return child;
}

inline int waitFor(pid_t child)
{
    int status = 0;
    waitpid(child, &status, 0);
    return status;
}

/** Standard error goes nowhere for a while: what is reported on purpose is not for the reader of the table. */
class Silence {
public:
    Silence()
        : m_kept(dup(STDERR_FILENO))
    {
        const int nowhere = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
        dup2(nowhere, STDERR_FILENO);
        close(nowhere);
    }
    ~Silence()
    {
        dup2(m_kept, STDERR_FILENO);
        close(m_kept);
    }
    Silence(const Silence &) = delete;
    Silence &operator=(const Silence &) = delete;

private:
    int m_kept;
};

} // namespace Torture
