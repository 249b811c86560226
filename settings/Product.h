// What the product has that no part of the telephony can tell.
#pragma once

#include <QObject>
#include <QtQmlIntegration>

/**
 * The file is kvq-settings.conf in the folders of the desktop's configuration, /etc/xdg for all users. In its group
 * [product] each key is "yes" or "no". A phone that it says nothing of has none of them, as phones are built today; the
 * simulated phone has all.
 */
class Product : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(bool flip MEMBER m_flip CONSTANT FINAL)
    Q_PROPERTY(bool anyKey MEMBER m_anyKey CONSTANT FINAL)
    Q_PROPERTY(bool fax MEMBER m_fax CONSTANT FINAL)
    Q_PROPERTY(bool video MEMBER m_video CONSTANT FINAL)

public:
    explicit Product(QObject *parent = nullptr);

private:
    bool m_flip;   ///< it is opened to answer
    bool m_anyKey; ///< it has keys to answer with
    bool m_fax;    ///< it takes fax calls
    bool m_video;  ///< it makes video calls
};
