// What a request was answered with.
#pragma once

#include "Properties.h"

#include <functional>
#include <optional>
#include <string_view>

namespace Ofono {

/** The answer to a request. A reader gives nothing when the answer has another shape. */
class Answer {
public:
    Answer() = default;
    explicit Answer(Message message)
        : m_message(std::move(message))
    {
    }

    std::optional<std::string_view> path() const;
    Properties properties() const;
    /** A list of objects with their properties, until @p visit says false; what is malformed ends it too. */
    void objects(const std::function<bool(std::string_view path, const Properties &)> &visit) const;
    /** The rules that the answer to a forwarding's service string lists. */
    Properties forwardingRules() const;

private:
    Message m_message;
};

} // namespace Ofono
