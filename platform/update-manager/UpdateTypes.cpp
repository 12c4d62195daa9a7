#include <platform/update-manager/UpdateTypes.h>

#include <QDBusMetaType>

namespace UpdateManager {

QDBusArgument& operator<<(QDBusArgument& aArgument, const DownloadableUpdateInfo& aInfo)
{
    aArgument.beginStructure();
    aArgument << aInfo.size << aInfo.version;
    aArgument.endStructure();
    return aArgument;
}

const QDBusArgument& operator>>(const QDBusArgument& aArgument, DownloadableUpdateInfo& aInfo)
{
    aArgument.beginStructure();
    aArgument >> aInfo.size >> aInfo.version;
    aArgument.endStructure();
    return aArgument;
}

void registerTypes()
{
    qRegisterMetaType<UpdateInstallState>("UpdateManager::UpdateInstallState");
    qDBusRegisterMetaType<DownloadableUpdateInfo>();
}

} // namespace UpdateManager
