// A PIN or PUK on its way to the platform.
#pragma once

#include "../TextField.h"

#include "TAPI_SECURITY.h"

#include <QByteArray>
#include <QString>

#include <cstring>

/** Holds at most 20 characters of the PIN, zero-filled; wiped when it goes. */
class PinBuffer {
public:
    explicit PinBuffer(const QString &pin)
    {
        QByteArray latin1 = pin.toLatin1();
        TextField::fill(m_pin, latin1);
        explicit_bzero(latin1.data(), static_cast<std::size_t>(latin1.size()));
    }
    ~PinBuffer() { explicit_bzero(m_pin, sizeof m_pin); }

    PinBuffer(const PinBuffer &) = delete;
    PinBuffer &operator=(const PinBuffer &) = delete;

    unsigned char *data() { return m_pin; }

private:
    TAPI_PIN_A m_pin;
};
