// What comes from outside, as it may be shown: names of networks, numbers of callers, texts of the SIM and the modem.
#pragma once

#include <QObject>
#include <QString>
#include <QtQmlIntegration>

/** Makes texts harmless that somebody else wrote. */
class Plain : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

public:
    using QObject::QObject;

    /** As the function below, with the direction of the application. */
    Q_INVOKABLE static QString shown(const QString &text);
    /**
     * A character that would be invisible or change the order of others stands as U+FFFD, and a line break or tabulator
     * as a space. Where words may run from right to left, numbers with signs and spaces still read from left to right.
     */
    static QString shown(const QString &text, Qt::LayoutDirection direction);
};
