// A file descriptor that closes itself.
#pragma once

#include <utility>

#include <unistd.h>

class Descriptor {
public:
    Descriptor() = default;
    explicit Descriptor(int number)
        : m_number(number)
    {
    }
    Descriptor(Descriptor &&other) noexcept
        : m_number(std::exchange(other.m_number, -1))
    {
    }
    Descriptor &operator=(Descriptor &&other) noexcept
    {
        reset(std::exchange(other.m_number, -1));
        return *this;
    }
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;
    ~Descriptor() { reset(); }

    explicit operator bool() const { return m_number >= 0; }
    int number() const { return m_number; }

    void reset(int number = -1)
    {
        if (m_number >= 0)
            close(m_number);
        m_number = number;
    }

private:
    int m_number = -1;
};
