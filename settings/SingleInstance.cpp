// Handing over to the start that has the window.
#include "SingleInstance.h"

#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QRegularExpression>
#include <QUrl>

#include <cstdio>

namespace {

constexpr QLatin1String service("org.kvq.settings");
constexpr QLatin1String path("/org/kvq/settings");
constexpr QLatin1String interface("org.freedesktop.Application");
constexpr QLatin1String refusal("org.kvq.settings.Error.NotShown");
constexpr QLatin1String showPage("show-page");
constexpr QLatin1String tokenKey("activation-token");
constexpr char tokenVariable[] = "XDG_ACTIVATION_TOKEN";

/** A first start that has not answered by then is stuck. */
constexpr int patience = 10'000;

QDBusMessage messageOf(const SingleInstance::Wish &wish)
{
    const auto call = [](const char *method, const QVariantList &arguments) {
        QDBusMessage message =
            QDBusMessage::createMethodCall(service, path, interface, QLatin1String(method));
        // With it the compositor lets the window come to the front.
        const QVariantMap platformData{{tokenKey, qEnvironmentVariable(tokenVariable)}};
        message.setArguments(arguments + QVariantList{QVariant(platformData)});
        return message;
    };
    if (!wish.number.isEmpty())
        return call("Open",
                    {QStringList(QStringLiteral("tel:")
                                 + QString::fromLatin1(QUrl::toPercentEncoding(wish.number)))});
    if (!wish.page.isEmpty())
        return call("ActivateAction", {QString(showPage), QVariantList{wish.page}});
    return call("Activate", {});
}

} // namespace

SingleInstance::SingleInstance(QObject *parent)
    : QObject(parent)
{
}

std::optional<int> SingleInstance::handOver(const Wish &wish)
{
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return std::nullopt;
    // Whoever finds the name taken finds the object there.
    bus.registerObject(path, this, QDBusConnection::ExportAllSlots);
    if (bus.registerService(service))
        return std::nullopt;
    bus.unregisterObject(path);
    const QDBusMessage answer = bus.call(messageOf(wish), QDBus::Block, patience);
    if (answer.type() != QDBusMessage::ErrorMessage)
        return 0;
    std::fprintf(stderr, "error: %s\n", qPrintable(answer.errorMessage()));
    return answer.errorName() == refusal ? std::optional(2) : std::nullopt;
}

QString SingleInstance::numberOf(const QString &address)
{
    const QUrl url(address);
    if (url.scheme() != QLatin1String("tel"))
        return {};
    // What is written for the eye goes, and so do parameters.
    static const QRegularExpression visual(QStringLiteral("[-.() ]"));
    static const QRegularExpression dialable(QStringLiteral("^\\+?[0-9*#]+$"));
    QString number = url.path(QUrl::FullyDecoded).section(QLatin1Char(';'), 0, 0);
    number.remove(visual);
    return dialable.match(number).hasMatch() ? number : QString();
}

void SingleInstance::Activate(const QVariantMap &platformData)
{
    take({}, platformData);
}

void SingleInstance::Open(const QStringList &addresses, const QVariantMap &platformData)
{
    take({{}, addresses.isEmpty() ? QString() : numberOf(addresses.constFirst())}, platformData);
}

void SingleInstance::ActivateAction(const QString &action, const QVariantList &parameters,
                                    const QVariantMap &platformData)
{
    const bool showsPage = action == showPage && !parameters.isEmpty();
    take({showsPage ? parameters.constFirst().toString() : QString(), {}}, platformData);
}

void SingleInstance::take(const Wish &wish, const QVariantMap &platformData)
{
    const QByteArray token = platformData.value(tokenKey).toString().toUtf8();
    if (!token.isEmpty())
        qputenv(tokenVariable, token);
    if (!m_show || !m_show(wish))
        sendErrorReply(refusal, QStringLiteral("there is no page \"%1\"").arg(wish.page));
}
