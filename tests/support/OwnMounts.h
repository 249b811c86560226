// Mounts that a process has for itself, for tests on file systems without space.
#pragma once

#include <fstream>
#include <string>

#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

/**
 * Gives the process, which must have one thread, mounts of its own that end with it. One that is not the superuser
 * becomes that of a world of its own first. False where the machine does not allow it.
 */
inline bool haveOwnMounts()
{
    const auto writeTo = [](const char *file, const std::string &text) { std::ofstream(file) << text; };
    const std::string user = std::to_string(geteuid());
    const std::string group = std::to_string(getegid());
    if (unshare(CLONE_NEWNS) != 0) {
        if (unshare(CLONE_NEWUSER | CLONE_NEWNS) != 0)
            return false;
        writeTo("/proc/self/setgroups", "deny");
        writeTo("/proc/self/uid_map", user + ' ' + user + " 1");
        writeTo("/proc/self/gid_map", group + ' ' + group + " 1");
    }
    return mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
}

/** Mounts a file system of 64 KiB in memory on the folder. False where the machine does not allow it. */
inline bool mountTinyDisk(const std::string &folder)
{
    return haveOwnMounts() && mount("tmpfs", folder.c_str(), "tmpfs", 0, "size=64k,mode=700") == 0;
}

/** Writes until nothing more fits. */
inline void fillDisk(const std::string &folder)
{
    std::ofstream filler(folder + "/filler", std::ios::binary);
    while (filler.put('x').flush())
        continue;
}
