// Looks for a PIN in the memory of this process.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <fstream>
#include <sstream>
#include <string>

#include <fcntl.h>
#include <unistd.h>

namespace MemorySearch {

/** Kept apart by one bit a digit, so that the pattern itself is nowhere to be found. */
inline constexpr unsigned char mask = 0x40;
inline constexpr std::array<unsigned char, 8> hidden = {'9' ^ mask, '1' ^ mask, '8' ^ mask, '2' ^ mask,
                                                        '7' ^ mask, '3' ^ mask, '6' ^ mask, '4' ^ mask};

/** Whether it stands here as text of one or of two bytes a character. */
inline bool standsAt(const unsigned char *memory, std::size_t size, std::size_t width)
{
    if (size < hidden.size() * width)
        return false;
    for (std::size_t digit = 0; digit < hidden.size(); ++digit) {
        if (memory[digit * width] != (hidden[digit] ^ mask) || (width == 2 && memory[digit * 2 + 1] != 0))
            return false;
    }
    return true;
}

/** Where its first digit stands next; null when it does not. */
inline const unsigned char *nextCandidate(const unsigned char *from, const unsigned char *end)
{
    if (from >= end)
        return nullptr;
    return static_cast<const unsigned char *>(
        std::memchr(from, hidden.front() ^ mask, static_cast<std::size_t>(end - from)));
}

/**
 * How often the PIN stands in the process's writable memory. Read page by page through the kernel into memory that is
 * outside the search; the shadow memory of a sanitizer, terabytes that hold no text, is left out by its size.
 */
inline unsigned int findInMemory()
{
    constexpr std::size_t chunk = 1 << 16;
    constexpr std::size_t overlap = 32;
    static std::array<unsigned char, chunk + overlap> buffer;
    constexpr std::uintptr_t largest = std::uintptr_t(1) << 30;

    unsigned int found = 0;
    const int memory = open("/proc/self/mem", O_RDONLY | O_CLOEXEC);
    std::ifstream maps("/proc/self/maps");
    for (std::string line; std::getline(maps, line);) {
        std::uintptr_t begin = 0;
        std::uintptr_t behind = 0;
        char dash = 0;
        std::string rights;
        std::istringstream(line) >> std::hex >> begin >> dash >> behind >> rights;
        if (rights.compare(0, 2, "rw") != 0 || behind - begin > largest)
            continue;
        for (std::uintptr_t at = begin; at < behind; at += chunk) {
            const std::size_t wanted = std::min<std::size_t>(behind - at, buffer.size());
            const ssize_t size = pread(memory, buffer.data(), wanted, static_cast<off_t>(at));
            const auto own = reinterpret_cast<std::uintptr_t>(buffer.data());
            const unsigned char *const end = buffer.data() + std::max<ssize_t>(size, 0);
            const unsigned char *const last = std::min<const unsigned char *>(end, buffer.data() + chunk);
            for (const unsigned char *byte = nextCandidate(buffer.data(), last); byte;
                 byte = nextCandidate(byte + 1, last)) {
                const std::uintptr_t address = at + static_cast<std::uintptr_t>(byte - buffer.data());
                const auto rest = static_cast<std::size_t>(end - byte);
                if ((address < own || address >= own + buffer.size())
                    && (standsAt(byte, rest, 1) || standsAt(byte, rest, 2)))
                    ++found;
            }
        }
        std::fill(buffer.begin(), buffer.end(), static_cast<unsigned char>(0));
    }
    close(memory);
    return found;
}

} // namespace MemorySearch
