// One window for all starts: the first shows it, and the others hand over what they were asked for.
#pragma once

#include <QDBusContext>
#include <QObject>
#include <QStringList>
#include <QVariant>

#include <functional>
#include <optional>

/** The first start serves the interface that desktops call applications by, org.freedesktop.Application. */
class SingleInstance : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    explicit SingleInstance(QObject *parent = nullptr);

    /** What a start was asked for. */
    struct Wish {
        QString page;   ///< empty for none
        QString number; ///< to dial; empty for none
    };

    /** Shows the window, with what is wished. False when there is no such page. */
    using Show = std::function<bool(const Wish &)>;

    /**
     * Gives the wish to the start that has the window, and says with which status this one ends; the reason of a
     * failure went to standard error. Nothing when the window is this one's to show: because it is the first, because
     * there is no session bus, or because the other one does not answer.
     */
    std::optional<int> handOver(const Wish &wish);
    /** Shows from now on what other starts wish for. They wait until then. */
    void serve(Show show) { m_show = std::move(show); }

    /** The number of a tel: address, as it is typed; empty when it is none. */
    static QString numberOf(const QString &address);

    /** @name org.freedesktop.Application
     * @{ */
    Q_SLOT void Activate(const QVariantMap &platformData);
    Q_SLOT void Open(const QStringList &addresses, const QVariantMap &platformData);
    Q_SLOT void ActivateAction(const QString &action, const QVariantList &parameters,
                               const QVariantMap &platformData);
    /** @} */

private:
    void take(const Wish &wish, const QVariantMap &platformData);

    Show m_show;
};
