// Procedure, service, up to three pieces of information, hash.
#include "ServiceCode.h"

#include <algorithm>
#include <utility>

namespace Kvq {

namespace {

// Longer ones before those that they begin with.
constexpr std::array<std::pair<QStringView, ServiceCode::Procedure>, 5> procedures = {{
    {u"**", ServiceCode::Procedure::Register},
    {u"##", ServiceCode::Procedure::Erase},
    {u"*#", ServiceCode::Procedure::Interrogate},
    {u"*", ServiceCode::Procedure::Activate},
    {u"#", ServiceCode::Procedure::Deactivate},
}};

bool isService(QStringView text)
{
    return (text.size() == 2 || text.size() == 3)
        && std::all_of(text.begin(), text.end(), [](QChar sign) { return sign >= u'0' && sign <= u'9'; });
}

} // namespace

std::optional<ServiceCode> ServiceCode::parse(QStringView typed)
{
    const auto *const procedure =
        std::find_if(procedures.begin(), procedures.end(),
                     [typed](const auto &known) { return typed.startsWith(known.first); });
    if (procedure == procedures.end())
        return std::nullopt;
    typed = typed.mid(procedure->first.size());
    const qsizetype end = typed.indexOf(u'#');
    if (end < 0)
        return std::nullopt;

    ServiceCode code;
    code.procedure = procedure->second;
    code.rest = typed.mid(end + 1);
    typed = typed.left(end);
    qsizetype star = typed.indexOf(u'*');
    code.service = typed.left(star < 0 ? typed.size() : star);
    if (!isService(code.service))
        return std::nullopt;
    for (std::size_t piece = 0; piece < code.information.size() && star >= 0; ++piece) {
        typed = typed.mid(star + 1);
        star = piece + 1 < code.information.size() ? typed.indexOf(u'*') : -1;
        code.information[piece] = typed.left(star < 0 ? typed.size() : star);
    }
    return code;
}

} // namespace Kvq
