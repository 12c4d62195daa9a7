#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

namespace Hmi::Shared {

/**
 * A network interface and its addresses as they were when the object was made. It belongs to whoever asked
 * SystemInformationManager for it; what is written to it changes nothing but the object.
 */
class Q_DECL_EXPORT SystemInformationNetwork : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString name MEMBER mName READ getName NOTIFY signalChangeName)
    Q_PROPERTY(QStringList ipAddresses MEMBER mIpAddresses READ getIpAddresses NOTIFY signalChangeIpAddresses)

public:
    SystemInformationNetwork(const QString& aName, const QStringList& aIpAddresses,
                             QObject* aParent = nullptr);

    /** Of the interface, such as "eth0". */
    QString getName() const { return mName; }

    /** Of IPv4 and IPv6, in the interface's order; a link-local one of IPv6 ends in "%" and the interface. */
    QStringList getIpAddresses() const { return mIpAddresses; }

signals:
    void signalChangeName();
    void signalChangeIpAddresses();

private:
    QString mName;
    QStringList mIpAddresses;
};

} // namespace Hmi::Shared
