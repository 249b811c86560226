// Call preferences: answering modes, reminders, alerts, hyphenation and their like.
#pragma once

#include "Subject.h"

namespace Kvq {

class CallPreferences : public Kvq::Subject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(Kvq::BoolSetting *reminder MEMBER m_reminder CONSTANT)
    Q_PROPERTY(Kvq::BoolSetting *flipAnswer MEMBER m_flipAnswer CONSTANT)
    Q_PROPERTY(Kvq::BoolSetting *anyKeyAnswer MEMBER m_anyKeyAnswer CONSTANT)
    Q_PROPERTY(Kvq::BoolSetting *autoAnswer MEMBER m_autoAnswer CONSTANT)
    Q_PROPERTY(Kvq::BoolSetting *messageAlert MEMBER m_messageAlert CONSTANT)
    Q_PROPERTY(Kvq::BoolSetting *roamingAlert MEMBER m_roamingAlert CONSTANT)
    Q_PROPERTY(Kvq::BoolSetting *prependPrefix MEMBER m_prependPrefix CONSTANT)
    Q_PROPERTY(Kvq::TextSetting *nationalPrefix MEMBER m_nationalPrefix CONSTANT)
    Q_PROPERTY(Kvq::BoolSetting *hearingAid MEMBER m_hearingAid CONSTANT)
    Q_PROPERTY(Kvq::IntSetting *audibleTimer MEMBER m_audibleTimer CONSTANT)
    Q_PROPERTY(Kvq::IntSetting *hyphenation MEMBER m_hyphenation CONSTANT)
    Q_PROPERTY(Kvq::IntSetting *searchMode MEMBER m_searchMode CONSTANT)
    Q_PROPERTY(Kvq::IntSetting *numberMatching MEMBER m_numberMatching CONSTANT)
    Q_PROPERTY(Kvq::BoolSetting *autoRedial MEMBER m_autoRedial CONSTANT)
    Q_PROPERTY(Kvq::BoolSetting *callDropTone MEMBER m_callDropTone CONSTANT)
    Q_PROPERTY(Kvq::IntSetting *toneType MEMBER m_toneType CONSTANT)
    Q_PROPERTY(Kvq::IntSetting *textTelephone MEMBER m_textTelephone CONSTANT)

public:
    /** What the stored numbers mean is up to the applications of the phone; the module names them so. */
    enum SearchMode {
        FromBeginning = PHONE_SETUP_SEARCH_MODE_DEFAULT,
        Anywhere,
    };
    Q_ENUM(SearchMode)

    enum Hyphenation {
        NotHyphenated = PHONE_SETUP_HYPHENATION_DEFAULT,
        Hyphenated,
    };
    Q_ENUM(Hyphenation)

    enum ToneType { ShortTones, LongTones };
    Q_ENUM(ToneType)

    /** With one carried over, the other of hearing and speaking goes through the text telephone. */
    enum TextTelephone { FullText, HearingCarriedOver, VoiceCarriedOver, NoText };
    Q_ENUM(TextTelephone)

    explicit CallPreferences(QObject *parent = nullptr);

Q_SIGNALS:
    void flashFull();

private:
    using Setup = PHONE_ENG_Setup;

    BoolSetting *const m_reminder = m_activity->setting<BoolSetting>(&Setup::isReminder, &Setup::setReminder);
    BoolSetting *const m_flipAnswer =
        m_activity->setting<BoolSetting>(&Setup::isFlipAnswer, &Setup::setFlipAnswer);
    BoolSetting *const m_anyKeyAnswer =
        m_activity->setting<BoolSetting>(&Setup::isAnykeyAnswer, &Setup::setAnykeyAnswer);
    BoolSetting *const m_autoAnswer =
        m_activity->setting<BoolSetting>(&Setup::isAutoAnswer, &Setup::setAutoAnswer);
    BoolSetting *const m_messageAlert =
        m_activity->setting<BoolSetting>(&Setup::isMsgAlert, &Setup::setMsgAlert);
    BoolSetting *const m_roamingAlert =
        m_activity->setting<BoolSetting>(&Setup::isRoamAlert, &Setup::setRoamAlert);
    BoolSetting *const m_prependPrefix =
        m_activity->setting<BoolSetting>(&Setup::isPrepend, &Setup::setPrepend);
    TextSetting *const m_nationalPrefix = m_activity->setting<TextSetting>(&Setup::getNddPrefix);
    BoolSetting *const m_hearingAid;
    IntSetting *const m_audibleTimer =
        m_activity->setting<IntSetting>(&Setup::getAudibleTimer, &Setup::setAudibleTimer);
    IntSetting *const m_hyphenation =
        m_activity->setting<IntSetting>(&Setup::getHyphenation, &Setup::setHyphenation);
    IntSetting *const m_searchMode =
        m_activity->setting<IntSetting>(&Setup::getSearchMode, &Setup::setSearchMode);
    IntSetting *const m_numberMatching = m_activity->setting<IntSetting>(&Setup::getMatchNumIndicate);
    BoolSetting *const m_autoRedial =
        m_activity->setting<BoolSetting>(&Setup::isAutoRedial, &Setup::setAutoRedial);
    BoolSetting *const m_callDropTone =
        m_activity->setting<BoolSetting>(&Setup::isCallDropTone, &Setup::setCallDropTone);
    IntSetting *const m_toneType = m_activity->setting<IntSetting>(&Setup::getDTMF, &Setup::setDTMF);
    IntSetting *const m_textTelephone;
};

} // namespace Kvq
