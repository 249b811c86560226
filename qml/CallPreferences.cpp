// The preferences that need more than a getter and a setter.
#include "CallPreferences.h"

#include "PHONE_ENG_WrapTapi.h"

namespace Kvq {

CallPreferences::CallPreferences(QObject *parent)
    : Subject(parent)
    , m_hearingAid(m_activity->custom<BoolSetting>(
          [](Engine &engine) {
              if (!engine.setup.isHACEnabled())
                  return Answer{TAPI_RESULT_NOT_SUPPORTED, {}};
              return Answer{TAPI_RESULT_SUCC, engine.setup.isHACOn()};
          },
          Operations::writer(&Setup::setHAC)))
    , m_textTelephone(m_activity->setting<IntSetting>(&PHONE_ENG_TAPI_GetTTYMode, &PHONE_ENG_TAPI_SetTTYMode))
{
    connect(&CallSetupWorker::instance(), &CallSetupWorker::flashFull, this, &CallPreferences::flashFull);
}

} // namespace Kvq
