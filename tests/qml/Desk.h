// The phone on the desk as tests see it: what it is asked, what it answers, and how long it takes.
#pragma once

#include "SimulatedPhone.h"

#include <QObject>
#include <QStringList>

#include <condition_variable>
#include <map>
#include <mutex>
#include <set>
#include <string>

class Desk : public QObject {
    Q_OBJECT

public:
    /** A new phone with empty settings; nothing is held, delayed or scripted. Waits until the worker has nothing to do. */
    Q_INVOKABLE void reset();

    /** Answers a platform function in place of the phone, a number of times; negative for always. */
    Q_INVOKABLE void answer(const QString &function, int result, int times = -1, int error = 0);
    /** Lets every platform function take a while. */
    Q_INVOKABLE void delay(int milliseconds);
    /** Keeps calls of a platform function from returning, until letGo(). */
    Q_INVOKABLE void hold(const QString &function);
    Q_INVOKABLE void letGo();
    /** Whether a call of a held function is there. */
    Q_INVOKABLE bool isHeld();

    /** The calls of a platform function since the last look, with their arguments. */
    Q_INVOKABLE QStringList calls(const QString &function);
    Q_INVOKABLE void forgetCalls();
    /** The functions that were called since the last look, in order. */
    Q_INVOKABLE QStringList order();

    Q_INVOKABLE int ring(const QString &number);
    Q_INVOKABLE bool remoteAnswers(int callId);
    Q_INVOKABLE void endCall(int callId);
    Q_INVOKABLE void forgetWhoCalled(int callId);
    Q_INVOKABLE void lackFeature(int feature);
    Q_INVOKABLE void preferNetworks(const QStringList &ids);
    /** What a search that was begun has found. */
    Q_INVOKABLE void findNetworks(const QStringList &ids);

    /** Makes an item in a QML engine of its own, and ends both. */
    Q_INVOKABLE void useAnotherEngine(const QString &item);

    Q_INVOKABLE void speak(const QString &language);

private:
    struct Answer {
        ScriptedAnswer scripted;
        int timesLeft = -1;
    };

    const ScriptedAnswer *answerer(std::string_view function);

    std::mutex m_mutex;
    std::condition_variable m_change;
    std::map<std::string, Answer, std::less<>> m_answers;
    ScriptedAnswer m_given;
    std::set<std::string, std::less<>> m_held;
    int m_waiting = 0;
    int m_delay = 0;
};
