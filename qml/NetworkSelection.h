// Network selection: how the modem looks for networks, and those that it found.
#pragma once

#include "Rows.h"

#include <QTimer>

namespace Kvq {

struct FoundNetwork {
    QString networkId;
    QString name;
    int status = 0;
    bool home = false;

    const QString &key() const { return networkId; }
    bool operator==(const FoundNetwork &) const = default;
};

class NetworkSelection : public Kvq::ListSubject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(Kvq::IntSetting *searchMode MEMBER m_searchMode CONSTANT)
    Q_PROPERTY(Kvq::IntSetting *searchSpeed MEMBER m_searchSpeed CONSTANT)
    Q_PROPERTY(Kvq::IntSetting *band MEMBER m_band CONSTANT)
    Q_PROPERTY(Kvq::BoolSetting *serviceTone MEMBER m_serviceTone CONSTANT)
    Q_PROPERTY(Kvq::TextSetting *serviceProvider MEMBER m_serviceProvider CONSTANT)
    Q_PROPERTY(bool searching READ isSearching NOTIFY searchingChanged)
    Q_PROPERTY(int searchInterval READ searchInterval WRITE setSearchInterval NOTIFY searchIntervalChanged)
    Q_PROPERTY(int searchLimit READ searchLimit WRITE setSearchLimit NOTIFY searchLimitChanged)

public:
    enum SearchMode {
        Automatic = TAPI_NETWORK_SEARCH_AUTOMATIC,
        Manual = TAPI_NETWORK_SEARCH_MANUAL,
    };
    Q_ENUM(SearchMode)

    enum SearchSpeed {
        Slow = TAPI_NETWORK_SEARCH_SLOW,
        Medium = TAPI_NETWORK_SEARCH_MEDIUM,
        Fast = TAPI_NETWORK_SEARCH_FAST,
        Continuous = TAPI_NETWORK_SEARCH_CONTINUOUS,
    };
    Q_ENUM(SearchSpeed)

    enum Band {
        AutomaticBand = TAPI_NETWORK_BAND_AUTOMATIC,
        Gsm900And1800 = TAPI_NETWORK_BAND_GSM_900_1800,
        Gsm850And1900 = TAPI_NETWORK_BAND_GSM_850_1900,
        Wcdma = TAPI_NETWORK_BAND_WCDMA,
    };
    Q_ENUM(Band)

    enum Status { StatusUnknown, Available, Registered, Forbidden };
    Q_ENUM(Status)

    explicit NetworkSelection(QObject *parent = nullptr);

    /** A search is asked for or under way, whichever item asked. */
    bool isSearching() const;
    int searchInterval() const { return m_searchInterval; }
    void setSearchInterval(int milliseconds);
    int searchLimit() const { return m_searchLimit; }
    void setSearchLimit(int milliseconds);

    Q_INVOKABLE Kvq::Request *search();
    Q_INVOKABLE Kvq::Request *rescan();
    Q_INVOKABLE void cancelSearch();
    Q_INVOKABLE Kvq::Request *registerOn(const QString &networkId);

Q_SIGNALS:
    void searchingChanged();
    void searchIntervalChanged();
    void searchLimitChanged();

private:
    using Network = PHONE_ENG_NtInterface;

    Request *look(bool (Network::*operation)());
    void lookAgain();

    Rows<FoundNetwork> *const m_networks;
    IntSetting *const m_searchMode =
        m_activity->setting<IntSetting>(&Network::getSearchMode, &Network::setSearchMode);
    IntSetting *const m_searchSpeed =
        m_activity->setting<IntSetting>(&Network::getSearchFreqency, &Network::setSearchFreqency);
    IntSetting *const m_band = m_activity->setting<IntSetting>(&Network::getBand, &Network::setBand);
    BoolSetting *const m_serviceTone =
        m_activity->setting<BoolSetting>(&Network::getServiceTone, &Network::setServiceTone);
    TextSetting *const m_serviceProvider = m_activity->custom<TextSetting>([](Engine &engine) {
        const QString name = engine.network.getServiceProviderName().name;
        // A SIM without a name gives none; an empty one was not read.
        const bool isRead = name.isNull() || !name.isEmpty();
        return Operations::answerOf(isRead ? TAPI_RESULT_SUCC : TAPI_RESULT_FAIL, name);
    });
    QPointer<Request> m_search; ///< its request, while that is in flight
    QTimer m_nextLook;
    int m_searchInterval = 2000;
    int m_searchLimit = 180000;
};

} // namespace Kvq

Q_DECLARE_METATYPE(QList<Kvq::FoundNetwork>)
