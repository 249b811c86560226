// The USIM applications of the card, each a subscription with a label of its own.
#include "PHONE_ENG_Setup.h"
#include "Unit.h"

#include "UTIL_State.h"

#include <algorithm>
#include <memory>
#include <new>

namespace {

/** The one result that the two USIM requests use for a failure. */
constexpr auto usimFailure = static_cast<_TAPI_RESULT_E>(1);

constexpr int cardWithoutUsim = 0;
constexpr int cardWithUsim = 1;

/** The label, low byte first; a zero character does not end it. Bounded by the field, whatever the length. */
QString labelOf(const _TAPI_SECURITY_ADF_INFO_S &application)
{
    const auto length = std::min<std::size_t>(application.labelLength, sizeof application.label);
    QString label;
    for (std::size_t position = 0; position < length; position += 2) {
        const unsigned char low = application.label[position];
        const unsigned char high = application.label[position + 1];
        label.append(QChar(static_cast<ushort>(high << 8 | low)));
    }
    return label;
}

} // namespace

_TAPI_RESULT_E PHONE_ENG_Setup::getUSIMAccountList(QStringList &list, unsigned char &activeIndex,
                                                   unsigned char &count)
{
    LOG_MESSAGE(R"(\n Getting Number of USIM applications )");
    const _TAPI_RESULT_E countResult = TAPI_SECURITY_GetNumOfUsim(&count);
    LOG_MESSAGE(R"(\n Getting Number of USIM applications )");
    if (countResult == usimFailure)
        return usimFailure;
    const unsigned char applicationCount = count;
    if (applicationCount == 0) {
        activeIndex = 0;
        UTIL_SetCardType(cardWithoutUsim);
        LOG_MESSAGE(R"(\n There are No USIM Applications in the Card )");
        return countResult;
    }
    UTIL_SetCardType(cardWithUsim);
    const std::unique_ptr<_TAPI_SECURITY_ADF_INFO_S[]> applications(
        new (std::nothrow) _TAPI_SECURITY_ADF_INFO_S[applicationCount]());
    if (!applications) {
        LOG_MESSAGE(R"(\n Could Not allocate Memory for Getting ADF Info)");
        return usimFailure;
    }
    unsigned char active = 0;
    LOG_TRACE();
    const _TAPI_RESULT_E result = TAPI_SECURITY_GetUsimList(&active, applicationCount, applications.get());
    LOG_TRACE();
    if (result == usimFailure) {
        LOG_MESSAGE(R"(\n Failure in Getting List of USIM applications)");
        return usimFailure;
    }
    LOG_MESSAGE(R"(\n The Active ADF Index is %d )", active);
    activeIndex = active;
    UTIL_SetActiveAccount(active);
    list.clear();
    for (int number = 1; number <= applicationCount; ++number) {
        const _TAPI_SECURITY_ADF_INFO_S &application = applications[static_cast<std::size_t>(number - 1)];
        LOG_MESSAGE(R"(\n Details of application Number %d )", number);
        LOG_MESSAGE(R"(\n AdfIndex  = %d )", application.adfIndex);
        LOG_MESSAGE(R"(\n Label Len = %d )", application.labelLength);
        if (application.labelLength == 0)
            list.append(QStringLiteral("Subscription  %1").arg(number));
        else
            list.append(labelOf(application));
    }
    return result;
}

_TAPI_RESULT_E PHONE_ENG_Setup::getCurrentUSIMAccountTitle(QString &title, unsigned char &count)
{
    LOG_MESSAGE(R"(\n Getting Title of the active USIM application )");
    QStringList accounts;
    LOG_MESSAGE(R"(\n Getting List of USIM applications )");
    unsigned char active = 0;
    if (getUSIMAccountList(accounts, active, count) == usimFailure)
        return usimFailure;
    if (active >= 1 && active <= accounts.size())
        title = accounts.at(active - 1);
    return TAPI_RESULT_SUCC;
}
