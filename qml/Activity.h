// The settings and requests of one item, and the state that is made of theirs.
#pragma once

#include "Operations.h"
#include "Request.h"
#include "Setting.h"

#include <utility>
#include <vector>

namespace Kvq {

/** Keeps the settings and requests of one item together. */
class Activity : public QObject {
    Q_OBJECT

public:
    /** @param urgency of the item's readings and requests, and of the writes of its settings */
    explicit Activity(QObject *item, Urgency urgency);

    CallSetup::State state() const { return m_state; }
    int result() const { return m_result; }
    bool isAvailable() const { return m_available; }
    bool isStale() const { return m_stale; }
    bool refreshesItself() const { return m_autoRefresh; }
    void setRefreshesItself(bool on);

    /** A setting of the item: read by one member of the engine and, if it can be, written by another. */
    template <typename SettingType, typename Get>
    SettingType *setting(Get get)
    {
        return add(new SettingType(Operations::reader(get), nullptr, parent()));
    }
    template <typename SettingType, typename Get, typename Set>
    SettingType *setting(Get get, Set set)
    {
        return add(new SettingType(Operations::reader(get), Operations::writer(set), parent()));
    }
    /** A setting with a reader and a writer of its own. */
    template <typename SettingType>
    SettingType *custom(Setting::Reader reader, Setting::Writer writer = nullptr)
    {
        return add(new SettingType(std::move(reader), std::move(writer), parent()));
    }
    template <typename SettingType>
    SettingType *add(SettingType *setting)
    {
        addSetting(setting);
        return setting;
    }

    using Take = std::function<void(const QVariant &)>;
    /** Whether what was read is still of use to an item that is made later. */
    enum class Keeping { Kept, ForNow };
    /** What refresh() reads besides the settings. */
    void setReader(Job job, Take take, Keeping keeping = Keeping::Kept);
    /**
     * Begins with what an item of the same type has last known.
     * @return its list, which may be newer than its reading; invalid for none
     */
    QVariant begin();
    /** A list as the phone has it. */
    void keepList(const QVariant &list);

    void refresh();
    void refreshSettings();
    /** The reader alone. One reading at a time: a wish that comes meanwhile is met by one more. */
    void read();
    /** The same without the item showing that it is busy, for what it reads by itself. */
    void readQuietly();
    bool isReading() const { return m_reading; }
    /** Of the reader's last run. */
    int readResult() const { return m_readResult; }
    void cancel();

    Request *request(Job job);

Q_SIGNALS:
    void changed();
    void autoRefreshChanged();
    void readingEnded(bool success);

private:
    void addSetting(Setting *setting);
    ValueName name(ValueName::Place place) const { return {m_type, place, 0}; }
    bool keeps() const { return m_type && m_keeping == Keeping::Kept; }
    void startReading();
    void readEnded(const Answer &answer);
    void update();

    std::vector<Setting *> m_settings;
    std::vector<QPointer<Request>> m_requests; ///< in flight
    const Urgency m_urgency;
    const QMetaObject *m_type = nullptr; ///< of the item, once it has begun
    Job m_reader;
    Take m_take;
    Keeping m_keeping = Keeping::Kept;
    bool m_staleReading = false; ///< what is shown was read for an item before this one
    QPointer<Ticket> m_reading;
    bool m_readAgain = false;
    bool m_readsQuietly = false;
    bool m_hasRead = false;
    int m_readResult = TAPI_RESULT_SUCC;
    int m_requestResult = TAPI_RESULT_SUCC;
    bool m_autoRefresh = true;
    CallSetup::State m_state = CallSetup::Unknown;
    int m_result = TAPI_RESULT_SUCC;
    bool m_available = true;
    bool m_stale = false;
};

} // namespace Kvq
