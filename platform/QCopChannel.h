// Broadcasts to the phone's other programs.
#pragma once

#include <QByteArray>

class QCopChannel {
public:
    static bool send(const QByteArray &channel, const QByteArray &message);
};
