// One value that the phone keeps: shown at once, confirmed or taken back.
#pragma once

#include "CallSetup.h"
#include "LastKnown.h"
#include "Ticket.h"

#include <QPointer>

#include <map>
#include <optional>

namespace Kvq {

/** What all settings have. The typed ones below add the value. */
class Setting : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Settings are properties of other types")
    Q_PROPERTY(Kvq::CallSetup::State state READ state NOTIFY stateChanged)
    Q_PROPERTY(bool busy READ isBusy NOTIFY stateChanged)
    Q_PROPERTY(int result READ result NOTIFY stateChanged)
    Q_PROPERTY(QString error READ error NOTIFY stateChanged)
    Q_PROPERTY(QString advice READ advice NOTIFY stateChanged)
    Q_PROPERTY(bool known READ isKnown NOTIFY stateChanged)
    Q_PROPERTY(bool stale READ isStale NOTIFY stateChanged)
    Q_PROPERTY(bool available READ isAvailable NOTIFY stateChanged)
    Q_PROPERTY(bool writable READ isWritable CONSTANT)

public:
    /** Gives the value on success. */
    using Reader = Job;
    /** May give the value that the phone took; gives none when it took the one that was asked for. */
    using Writer = std::function<Answer(Engine &, const QVariant &)>;

    /** Null for a setting that cannot be read, or written. */
    Setting(QVariant initial, Reader reader, Writer writer, QObject *item);

    CallSetup::State state() const;
    bool isBusy() const { return m_reading || !m_writes.empty(); }
    int result() const { return m_result; }
    QString error() const { return Results::text(m_result); }
    QString advice() const { return Results::advice(m_result); }
    bool isKnown() const { return m_known; }
    bool isStale() const { return m_stale; }
    bool isAvailable() const { return m_available; }
    bool isWritable() const { return static_cast<bool>(m_writer); }

    Q_INVOKABLE void refresh();
    Q_INVOKABLE void retry();
    Q_INVOKABLE bool cancel();

    /** The setting's place among those of its item, which makes it the same as another item's. */
    void setPlace(int place) { m_place = place; }
    /** For writes on which a call depends that is made after them. */
    void setUrgency(Urgency urgency) { m_urgency = urgency; }
    /** Tells apart what the setting means at different times; 0 for what it usually means. */
    virtual int variant() const { return 0; }
    /** Begins, for an item of a type, with what an item before it has last known. */
    void begin(const QMetaObject *type);

Q_SIGNALS:
    void valueChanged();
    void stateChanged();
    void confirmed();
    void takenBack(int result, const QString &error);

protected:
    const QVariant &shown() const { return m_shown; }
    /** Takes a value of its own: the caller's may be one that the write clears. */
    void write(QVariant value);
    /**
     * Forgets what is known, for a setting that came to mean something else. Writes in flight are still made, but
     * their end is not waited for.
     */
    void forget();

private:
    struct Write {
        QVariant value;
        QPointer<Ticket> ticket;
    };

    void readEnded(const Answer &answer);
    void writeEnded(unsigned int number, const Answer &answer);
    void settle(int result);
    void show();
    void inherit();
    void adopt(const Setting *source, const QVariant &value);
    void follow(const ValueName &changed);
    void keep(const QVariant &value);
    void dropStale();
    ValueName name() const;

    const Reader m_reader;
    const Writer m_writer;
    const QVariant m_initial;
    QVariant m_shown;     ///< of the last write in flight, else m_confirmed
    QVariant m_confirmed; ///< what the phone has, as far as is known
    std::optional<QVariant> m_takenBack;
    QPointer<Ticket> m_reading;
    std::map<unsigned int, Write> m_writes; ///< in flight, in the order of asking
    unsigned int m_writesMade = 0;
    CallSetup::State m_settled = CallSetup::Unknown;
    int m_result = TAPI_RESULT_SUCC;
    const QMetaObject *m_type = nullptr; ///< of the item
    int m_place = 0;
    Urgency m_urgency = Urgency::Ordinary;
    bool m_known = false;
    bool m_stale = false; ///< known from before the item was there, and not read again yet
    bool m_available = true;
};

class BoolSetting : public Kvq::Setting {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Settings are properties of other types")
    Q_PROPERTY(bool value READ value WRITE setValue NOTIFY valueChanged)

public:
    BoolSetting(Reader reader, Writer writer, QObject *item);
    bool value() const { return shown().toBool(); }
    void setValue(bool value) { write(value); }
};

class IntSetting : public Kvq::Setting {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Settings are properties of other types")
    Q_PROPERTY(int value READ value WRITE setValue NOTIFY valueChanged)

public:
    IntSetting(Reader reader, Writer writer, QObject *item);
    int value() const { return shown().toInt(); }
    void setValue(int value) { write(value); }
};

class TextSetting : public Kvq::Setting {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Settings are properties of other types")
    Q_PROPERTY(QString value READ value WRITE setValue NOTIFY valueChanged)

public:
    TextSetting(Reader reader, Writer writer, QObject *item);
    QString value() const { return shown().toString(); }
    void setValue(const QString &value) { write(value); }
};

} // namespace Kvq
