// What a developer does to the simulated phone, for the panel and for the command line.
#pragma once

#include "Journal.h"

#include <QObject>
#include <QString>
#include <QStringList>
#include <QTimer>
#include <QVariantList>
#include <QtQmlIntegration>

/** The simulated phone as the panel sees it. Where another phone is loaded nothing happens. */
class Desk : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON

    /** Whether the phone is the simulated one. */
    Q_PROPERTY(bool present READ present CONSTANT FINAL)
    /** How the phone is: objects with a subject and a text. */
    Q_PROPERTY(QVariantList facts READ facts NOTIFY factsChanged FINAL)
    /** Whether the facts are kept up to date. */
    Q_PROPERTY(bool watching READ watching WRITE setWatching NOTIFY watchingChanged FINAL)
    Q_PROPERTY(Journal *journal READ journal CONSTANT FINAL)

    /** What was arranged. @{ */
    Q_PROPERTY(int delay READ delay WRITE setDelay NOTIFY arranged FINAL)
    Q_PROPERTY(bool diskFull READ diskFull WRITE setDiskFull NOTIFY arranged FINAL)
    /** What the product lacks, by name. */
    Q_PROPERTY(QStringList missing READ missing NOTIFY arranged FINAL)
    Q_PROPERTY(bool simReady READ simReady WRITE setSimReady NOTIFY arranged FINAL)
    /** @} */

public:
    explicit Desk(QObject *parent = nullptr);
    ~Desk() override;

    static bool isPresent();
    /**
     * Does one thing to the phone, told in words: "ring 5550100", "delay 2000".
     * @param error what is wrong with the words, when they are
     */
    static bool run(const QString &command, QString *error);
    static QString commandHelp();

    bool present() const { return isPresent(); }
    QVariantList facts() const { return m_facts; }
    bool watching() const { return m_timer.isActive(); }
    void setWatching(bool watching);
    Journal *journal() { return &m_journal; }
    int delay() const { return s_delay; }
    void setDelay(int milliseconds);
    bool diskFull() const { return s_diskFull; }
    void setDiskFull(bool full);
    QStringList missing() const { return s_missing; }
    bool simReady() const { return s_simReady; }
    void setSimReady(bool ready);

    Q_INVOKABLE void ring(const QString &number);
    /** The other side answers every call that was dialled, or ends every call. */
    Q_INVOKABLE void otherSideAnswers();
    Q_INVOKABLE void otherSideHangsUp();
    /** Requests whose names begin so answer with a code; 0 lets them answer by themselves again. */
    Q_INVOKABLE void fail(const QString &functions, int result);
    Q_INVOKABLE void setMissing(const QString &subject, bool missing);
    /** A new phone; its settings stay. */
    Q_INVOKABLE void reset();

Q_SIGNALS:
    void factsChanged();
    void watchingChanged();
    void arranged();

private:
    void look();

    // What was arranged belongs to the phone, of which a process has one.
    static inline int s_delay = 0;
    static inline bool s_diskFull = false;
    static inline bool s_simReady = true;
    static inline QStringList s_missing;

    Journal m_journal;
    QVariantList m_facts;
    QTimer m_timer;
};
