// A PIN or PUK on its way to the platform.
#pragma once

#include "../TextField.h"

#include "TAPI_SECURITY.h"

#include <QByteArray>
#include <QString>

#include <cstring>

/** Holds at most 20 characters of the PIN, zero-filled, and the whole of it for the log; both are wiped. */
class PinBuffer {
public:
    explicit PinBuffer(const QString &pin)
        : m_text(pin.toLatin1())
    {
        TextField::fill(m_pin, m_text);
    }
    ~PinBuffer()
    {
        explicit_bzero(m_pin, sizeof m_pin);
        explicit_bzero(m_text.data(), static_cast<std::size_t>(m_text.size()));
    }

    PinBuffer(const PinBuffer &) = delete;
    PinBuffer &operator=(const PinBuffer &) = delete;

    unsigned char *data() { return m_pin; }
    /** All of it, for LOG_SECRET. */
    const char *text() const { return m_text.constData(); }

private:
    QByteArray m_text;
    TAPI_PIN_A m_pin;
};
