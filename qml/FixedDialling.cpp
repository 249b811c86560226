// Switching fixed dialling.
#include "FixedDialling.h"

#include "Secret.h"

namespace Kvq {

Request *FixedDialling::setEnabled(bool on, const QString &pin2)
{
    Request *const request = m_activity->request([on, pin = Secret(pin2)](Engine &engine) {
        return pin.with([&](const QString &text) {
            return Operations::answerOf(engine.setup.setFixedDialing(on, text));
        });
    });
    connect(request, &Request::answered, this, [this](const Answer &answer) {
        if (answer.isSuccess())
            m_enabled->refresh();
    });
    return request;
}

} // namespace Kvq
