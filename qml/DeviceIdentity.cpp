// The versions of the baseband processor, which come in one record.
#include "DeviceIdentity.h"

#include <cstring>

namespace Kvq {

namespace {

/** The record is asked for once: a version does not change while the phone runs. Used on the engine's thread only. */
class Versions {
public:
    TAPI_RESULT_E read(PHONE_ENG_Setup &setup)
    {
        if (m_result != TAPI_RESULT_SUCC)
            m_result = setup.getBpVersionInfo(&m_info);
        return m_result;
    }
    const PHONE_BP_VERSION_INFO_S &info() const { return m_info; }

private:
    PHONE_BP_VERSION_INFO_S m_info = {};
    TAPI_RESULT_E m_result = TAPI_RESULT_FAIL;
};

} // namespace

DeviceIdentity::DeviceIdentity(QObject *parent)
    : Subject(parent)
{
    using Field = char(PHONE_BP_VERSION_INFO_S::*)[48];
    const auto versions = std::make_shared<Versions>();
    const auto version = [this, versions](Field field) {
        return m_activity->custom<TextSetting>([versions, field](Engine &engine) {
            const TAPI_RESULT_E result = versions->read(engine.setup);
            return Operations::answerOf(result, QString::fromLatin1(versions->info().*field));
        });
    };
    m_basebandVersion = version(&PHONE_BP_VERSION_INFO_S::bpVer);
    m_flexVersion = version(&PHONE_BP_VERSION_INFO_S::bpFlexVer);
    m_dspVersion = version(&PHONE_BP_VERSION_INFO_S::dspVer);
    m_technology = version(&PHONE_BP_VERSION_INFO_S::technology);
}

} // namespace Kvq
