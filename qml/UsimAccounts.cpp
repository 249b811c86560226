// How the USIM applications are read.
#include "UsimAccounts.h"

namespace Kvq {

namespace {

constexpr std::array<Role<UsimAccount>, 2> roles = {{
    {"label", [](const UsimAccount &account) { return QVariant(account.label); }},
    {"active", [](const UsimAccount &account) { return QVariant(account.active); }},
}};

Answer readAccounts(Engine &engine)
{
    QStringList labels;
    unsigned char activeIndex = 0;
    unsigned char count = 0;
    const _TAPI_RESULT_E result = engine.setup.getUSIMAccountList(labels, activeIndex, count);
    if (result != TAPI_RESULT_SUCC)
        return Operations::answerOf(result);
    QList<UsimAccount> accounts;
    for (const QString &label : std::as_const(labels)) {
        const int position = static_cast<int>(accounts.size()) + 1;
        accounts.append({position, label, position == activeIndex});
    }
    return {TAPI_RESULT_SUCC, QVariant::fromValue(accounts)};
}

} // namespace

UsimAccounts::UsimAccounts(QObject *parent)
    : ListSubject(parent)
    , m_accounts(addRows<UsimAccount>(roles))
{
    m_activity->setReader(readAccounts, [this](const QVariant &accounts) {
        m_accounts->setConfirmed(accounts.value<QList<UsimAccount>>());
        Q_EMIT activeIndexChanged();
    });
}

int UsimAccounts::activeIndex() const
{
    const auto &accounts = m_accounts->list();
    for (int row = 0; row < static_cast<int>(accounts.size()); ++row) {
        if (accounts.at(row).active)
            return row;
    }
    return -1;
}

} // namespace Kvq
