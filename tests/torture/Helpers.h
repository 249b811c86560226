// What the parts of the torture have in common.
#pragma once

#include "SettingsAccess.h"

#include <QString>

#include <cstdlib>
#include <fstream>
#include <sstream>
#include <string>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace Torture {

inline constexpr unsigned int application = 4;
inline const QString group = QStringLiteral("Setup");

/** A store as a process that has just started has it. */
struct Fresh : SettingsStore {
    explicit Fresh(const std::string &file) { setFile(QString::fromStdString(file)); }

    int number(const char *key) { return valueOf<int>(key, -1); }
    QString text(const char *key) { return valueOf<QString>(key, QString()); }
    bool put(const char *key, const Value &value)
    {
        return write({application, group, QString::fromLatin1(key)}, value);
    }

private:
    template <typename Type>
    Type valueOf(const char *key, const Type &defaultValue)
    {
        Type value = {};
        SettingsAccess(*this, application, true).read(group, QString::fromLatin1(key), value, defaultValue);
        return value;
    }
};

struct Collection : SettingsAccess {
    explicit Collection(SettingsStore &store)
        : SettingsAccess(store, application, false)
    {
    }

    bool put(const char *key, const SettingsStore::Value &value)
    {
        return write(group, QString::fromLatin1(key), value);
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
