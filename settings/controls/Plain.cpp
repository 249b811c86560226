// What comes from outside, as it may be shown.
#include "Plain.h"

#include <QGuiApplication>
#include <QRegularExpression>

#include <algorithm>

namespace {

constexpr char16_t leftToRightIsolate = 0x2066;
constexpr char16_t endOfIsolate = 0x2069;
constexpr char16_t replacement = 0xfffd;

/** What stands in place of a character, 0 where the character itself may stand. */
char16_t insteadOf(char32_t character)
{
    constexpr char32_t joiners[] = {0x200c, 0x200d}; // Persian and Indian words need them
    if (std::find(std::begin(joiners), std::end(joiners), character) != std::end(joiners))
        return 0;
    switch (QChar::category(character)) {
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return u' ';
    case QChar::Other_Control:
        return QChar::isSpace(character) ? u' ' : replacement;
    case QChar::Other_Format:
    case QChar::Other_Surrogate:
    case QChar::Other_PrivateUse:
    case QChar::Other_NotAssigned:
        return replacement;
    default:
        return 0;
    }
}

bool runsFromRightToLeft(char32_t character)
{
    const QChar::Direction direction = QChar::direction(character);
    return direction == QChar::DirR || direction == QChar::DirAL;
}

} // namespace

QString Plain::shown(const QString &text)
{
    return shown(text, QGuiApplication::layoutDirection());
}

QString Plain::shown(const QString &text, Qt::LayoutDirection direction)
{
    QString result;
    result.reserve(text.size());
    bool mirrored = direction == Qt::RightToLeft;
    const QList<uint> characters = text.toUcs4();
    for (const uint character : characters) {
        mirrored = mirrored || runsFromRightToLeft(character);
        if (const char16_t other = insteadOf(character))
            result += QChar(other);
        else
            result += QString::fromUcs4(reinterpret_cast<const char32_t *>(&character), 1);
    }
    if (!mirrored)
        return result;
    // Digits alone keep their order; signs and spaces beside them do not.
    static const QRegularExpression number(
        QStringLiteral("([+*#(]*[0-9][-0-9+*#()/.,:; pw]*[0-9#*)]|[+*#(]+[0-9])"));
    return result.replace(number, QChar(leftToRightIsolate) + QStringLiteral("\\1") + QChar(endOfIsolate));
}
