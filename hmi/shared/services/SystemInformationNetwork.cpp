#include <hmi/shared/services/SystemInformationNetwork.h>

namespace Hmi::Shared {

SystemInformationNetwork::SystemInformationNetwork(const QString& aName, const QStringList& aIpAddresses,
                                                   QObject* aParent) :
    QObject(aParent), mName(aName), mIpAddresses(aIpAddresses)
{}

} // namespace Hmi::Shared
