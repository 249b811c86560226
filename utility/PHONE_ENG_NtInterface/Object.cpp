// The object: its life cycle and the rule by which platform results become success or failure.
#include "PHONE_ENG_NtInterface.h"
#include "Unit.h"

PHONE_ENG_NtInterface *PHONE_ENG_NtInterface::m_pInstance = nullptr;
const QMetaObject *PHONE_ENG_NtInterface::metaObj = nullptr;

PHONE_ENG_NtInterface *PHONE_ENG_NtInterface::instance()
{
    if (!m_pInstance)
        m_pInstance = new PHONE_ENG_NtInterface;
    return m_pInstance;
}

void PHONE_ENG_NtInterface::destroy()
{
    delete m_pInstance;
    m_pInstance = nullptr;
}

void PHONE_ENG_NtInterface::destruction()
{
    destroy();
}

PHONE_ENG_NtInterface::PHONE_ENG_NtInterface()
{
    LOG_MESSAGE(R"(in PHONE_ENG_NtInterface::PHONE_ENG_NtInterface\n)");
    PHONE_ENG_NtInterface::initMetaObject();
    LOG_MESSAGE(R"(out PHONE_ENG_NtInterface::PHONE_ENG_NtInterface\n)");
}

PHONE_ENG_NtInterface::~PHONE_ENG_NtInterface() = default;

const char *PHONE_ENG_NtInterface::className() const
{
    return "PHONE_ENG_NtInterface";
}

void PHONE_ENG_NtInterface::initMetaObject()
{
    metaObj = &staticMetaObject;
}

bool PHONE_ENG_NtInterface::result(_TAPI_RESULT_E code)
{
    if (code == TAPI_RESULT_SUCC)
        return true;
    LOG_MESSAGE(R"(Failed to call tapi function ret = %d!\n)", static_cast<int>(code));
    return false;
}
