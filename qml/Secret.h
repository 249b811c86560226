// A PIN or PUK, or what is dialled and may hold one, on its way to the engine: wiped when it is no longer needed.
#pragma once

#include <QString>

#include <algorithm>
#include <cstring>
#include <memory>
#include <vector>

namespace Kvq {

/**
 * A copy of a PIN that requests carry. Copies of a Secret share it, and the last one wipes it. What the caller holds
 * is the caller's: a script's text stays in the script engine until that collects it.
 */
class Secret {
public:
    explicit Secret(const QString &text)
        : m_letters(new std::vector<QChar>(text.cbegin(), text.cend()), wipe<QChar>)
    {
    }

    /** Calls @p use with the PIN as a text that shares its memory with no other, and wipes that text afterwards. */
    template <typename Use>
    auto with(Use use) const
    {
        QString text(m_letters->data(), static_cast<qsizetype>(m_letters->size()));
        const Wiper wiper{text};
        return use(std::as_const(text));
    }

    /** The same with a NUL-terminated text of Latin-1 characters, as call control takes it. */
    template <typename Use>
    auto withLatin1(Use use) const
    {
        const std::unique_ptr<std::vector<unsigned char>, void (*)(std::vector<unsigned char> *)> text(
            new std::vector<unsigned char>(m_letters->size() + 1), wipe<unsigned char>);
        std::transform(m_letters->cbegin(), m_letters->cend(), text->begin(), [](QChar letter) {
            return static_cast<unsigned char>(letter.unicode() <= 0xFF ? letter.unicode() : '?');
        });
        return use(text->data());
    }

private:
    struct Wiper {
        QString &text;

        ~Wiper()
        {
            // Not detached: it is this memory that must be wiped, even if someone shares it.
            auto *const letters = const_cast<QChar *>(text.constData());
            explicit_bzero(letters, static_cast<std::size_t>(text.size()) * sizeof(QChar));
        }
    };

    template <typename Letter>
    static void wipe(std::vector<Letter> *letters)
    {
        if (!letters->empty()) // an empty one may have no memory
            explicit_bzero(letters->data(), letters->size() * sizeof(Letter));
        delete letters;
    }

    std::shared_ptr<std::vector<QChar>> m_letters;
};

} // namespace Kvq
