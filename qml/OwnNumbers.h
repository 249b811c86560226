// The subscriber's own numbers on the SIM.
#pragma once

#include "Rows.h"

namespace Kvq {

struct OwnNumber {
    int line = 0; ///< record of the card, from 1
    QString number;
    QString name;

    int key() const { return line; }
    bool operator==(const OwnNumber &) const = default;
};

class OwnNumbers : public Kvq::ListSubject {
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(int maxNumberLength READ maxNumberLength NOTIFY limitsChanged)
    Q_PROPERTY(int maxNameLength READ maxNameLength NOTIFY limitsChanged)

public:
    explicit OwnNumbers(QObject *parent = nullptr);

    /** 0 while not known. */
    int maxNumberLength() const { return m_maxNumberLength; }
    int maxNameLength() const { return m_maxNameLength; }

    Q_INVOKABLE Kvq::Request *setNumber(int line, const QString &number, const QString &name);
    Q_INVOKABLE Kvq::Request *removeNumber(int line);

Q_SIGNALS:
    void limitsChanged();

private:
    Rows<OwnNumber> *const m_numbers;
    int m_maxNumberLength = 0;
    int m_maxNameLength = 0;
};

} // namespace Kvq

Q_DECLARE_METATYPE(QList<Kvq::OwnNumber>)
