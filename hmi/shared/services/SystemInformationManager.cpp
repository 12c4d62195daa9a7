#include <hmi/shared/services/SystemInformationManager.h>

#include <BuildIdentifiers.h>
#include <QNetworkInterface>
#include <QQmlEngine>
#include <QStringList>

#include <hmi/shared/services/SystemInformationNetwork.h>
#include <hmi/shared/services/SystemInformationSubmodule.h>

namespace Hmi::Shared {

/** Qt lets the engine collect a returned object, but not the objects of a returned list. */
static QObject* leftToQml(QObject* aObject)
{
    QQmlEngine::setObjectOwnership(aObject, QQmlEngine::JavaScriptOwnership);
    return aObject;
}

static bool isShown(const QNetworkInterface& aInterface)
{
    return aInterface.flags().testFlag(QNetworkInterface::IsUp) &&
           !aInterface.flags().testFlag(QNetworkInterface::IsLoopBack);
}

static QStringList addressesOf(const QNetworkInterface& aInterface)
{
    QStringList addresses;
    const QList<QNetworkAddressEntry> entries = aInterface.addressEntries();
    for (const QNetworkAddressEntry& entry : entries)
        addresses.append(entry.ip().toString());
    return addresses;
}

SystemInformationManager::SystemInformationManager(QQmlEngine*, QJSEngine*) {}

QList<QObject*> SystemInformationManager::getInformationNetwork() const
{
    QList<QObject*> networks;
    const QList<QNetworkInterface> interfaces = QNetworkInterface::allInterfaces();
    for (const QNetworkInterface& interface : interfaces) {
        if (isShown(interface))
            networks.append(
                leftToQml(new SystemInformationNetwork(interface.name(), addressesOf(interface))));
    }
    return networks;
}

QList<QObject*> SystemInformationManager::getInformationSubmodule() const
{
    return {leftToQml(new SystemInformationSubmodule(QStringLiteral("dummy"), QStringLiteral("dead000"),
                                                     QStringLiteral("dummy description")))};
}

QString SystemInformationManager::getSha() const { return QString::fromUtf8(BuildSha); }

QString SystemInformationManager::getGitDescribe() const { return QString::fromUtf8(BuildDescription); }

QString SystemInformationManager::getQtVersion() const { return QStringLiteral(QT_VERSION_STR); }

} // namespace Hmi::Shared
