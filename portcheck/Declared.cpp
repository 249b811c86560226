// Looks up in a library what the platform headers declare.
#include "Declared.h"

#include <QtGlobal>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>

#include <cxxabi.h>
#include <dlfcn.h>
#include <link.h>

namespace PortCheck {

namespace {

struct Symbol {
    const char *header;
    const char *name;
};

constexpr Symbol symbols[] = {
#include "symbols.inc"
};

constexpr char expectedName[] = "libkvqplatform.so.1";
constexpr const char *otherToolkit = QT_VERSION_MAJOR == 6 ? "libQt5Core.so.5" : "libQt6Core.so.6";

std::string readable(const char *symbol)
{
    const std::unique_ptr<char, decltype(&std::free)> text(
        abi::__cxa_demangle(symbol, nullptr, nullptr, nullptr), &std::free);
    return text ? text.get() : symbol;
}

/** The name that a library carries, "" when it carries none. */
std::string sonameOf(void *library)
{
    link_map *map = nullptr;
    if (dlinfo(library, RTLD_DI_LINKMAP, &map) != 0)
        return {};
    ElfW(Addr) strings = 0;
    ElfW(Xword) offset = 0;
    bool named = false;
    for (const ElfW(Dyn) *entry = map->l_ld; entry->d_tag != DT_NULL; ++entry) {
        if (entry->d_tag == DT_STRTAB)
            strings = entry->d_un.d_ptr;
        else if (entry->d_tag == DT_SONAME) {
            offset = entry->d_un.d_val;
            named = true;
        }
    }
    // On some processors the loader leaves the address as it stands in the file.
    if (strings < map->l_addr)
        strings += map->l_addr;
    // NOLINTNEXTLINE(performance-no-int-to-ptr,clang-analyzer-cplusplus.StringChecker): the loader keeps addresses
    return named ? reinterpret_cast<const char *>(strings) + offset : std::string();
}

/** The room of a variable, 0 when the library does not tell. */
std::size_t roomOf(void *variable)
{
    Dl_info information;
    void *entry = nullptr;
    if (dladdr1(variable, &information, &entry, RTLD_DL_SYMENT) == 0 || !entry)
        return 0;
    return static_cast<const ElfW(Sym) *>(entry)->st_size;
}

} // namespace

Findings examine(const char *library)
{
    Findings findings;
    void *const handle = dlopen(library, RTLD_LAZY | RTLD_LOCAL);
    if (!handle) {
        findings.error = dlerror();
        return findings;
    }
    for (const Symbol &symbol : symbols) {
        ++findings.declared;
        if (!dlsym(handle, symbol.name))
            findings.missing.push_back(readable(symbol.name) + "  (" + symbol.header + ")");
    }
    const std::string soname = sonameOf(handle);
    if (soname != expectedName)
        findings.mistakes.push_back("its SONAME is \"" + soname + "\": the engine looks for " + expectedName);
    // Names are the same in both generations, so nothing else keeps them from meeting in a crash.
    if (dlopen(otherToolkit, RTLD_LAZY | RTLD_NOLOAD))
        findings.mistakes.push_back(std::string("it brings ") + otherToolkit
                                    + ": this engine is built with Qt " + std::to_string(QT_VERSION_MAJOR));
    void *const stream = dlsym(handle, "libaplog_to_module_ptr");
    const std::size_t room = stream ? roomOf(stream) : 0;
    if (room != 0 && room != sizeof(std::FILE *))
        findings.mistakes.push_back("libaplog_to_module_ptr has " + std::to_string(room)
                                    + " bytes in place of " + std::to_string(sizeof(std::FILE *)));
    // The library stays loaded: what it started may still use its code.
    return findings;
}

} // namespace PortCheck
