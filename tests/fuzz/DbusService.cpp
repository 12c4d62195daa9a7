#include "DbusService.h"

#include "Fuzzing.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QEventLoop>
#include <QFile>
#include <QMutexLocker>
#include <array>
#include <csignal>
#include <sys/prctl.h>

namespace HmiFuzz {

struct Address
{
    const char* name;
    const char* path;
};

static constexpr std::array<Address, 2> Addresses = {
    Address{"com.korvex.NotificationManager", "/com/korvex/NotificationManager"},
    Address{"com.korvex.UpdateManager", "/com/korvex/UpdateManager"}};

void DbusService::Daemon::setupChildProcess() { prctl(PR_SET_PDEATHSIG, SIGKILL); }

DbusService& DbusService::instance()
{
    // Qt's connections go after main() as well, and in no known order.
    static DbusService* const service = new DbusService;
    return *service;
}

DbusService::DbusService()
{
    const QString address = QStringLiteral("unix:path=") + mFolder.filePath(QStringLiteral("bus"));
    qputenv("DBUS_SYSTEM_BUS_ADDRESS", QFile::encodeName(address));
    mDaemon.start(QStringLiteral("dbus-daemon"),
                  {QStringLiteral("--session"), QStringLiteral("--nofork"), QStringLiteral("--nopidfile"),
                   QStringLiteral("--print-address"), QStringLiteral("--address=") + address},
                  QIODevice::ReadOnly);
    require(mDaemon.waitForReadyRead(20000), "there is a bus daemon");
    mConnection = QDBusConnection::connectToBus(address, QStringLiteral("service"));
    mConnection.registerVirtualObject(QStringLiteral("/"), this, QDBusConnection::SubPath);
    moveToThread(&mThread);
    mThread.start();
    come();
}

void DbusService::come()
{
    for (const Address& address : Addresses)
        require(mConnection.registerService(QLatin1String(address.name)), "the name is free");
}

void DbusService::leave()
{
    for (const Address& address : Addresses)
        mConnection.unregisterService(QLatin1String(address.name));
}

void DbusService::signal(Name aFrom, const QString& aName, const QVariantList& aArguments)
{
    const Address& address = Addresses.at(aFrom);
    QDBusMessage message =
        QDBusMessage::createSignal(QLatin1String(address.path), QLatin1String(address.name), aName);
    message.setArguments(aArguments);
    mConnection.send(message);
}

void DbusService::answer(const char* aMethod, const QVariantList& aArguments)
{
    const QMutexLocker locker(&mMutex);
    mAnswers.insert(QLatin1String(aMethod), aArguments);
}

void DbusService::settle()
{
    const QDBusMessage fence = QDBusMessage::createMethodCall(
        mConnection.baseService(), QStringLiteral("/fence"), QString(), QStringLiteral("Fence"));
    QDBusPendingCallWatcher call(QDBusConnection::systemBus().asyncCall(fence));
    QEventLoop loop;
    QObject::connect(&call, &QDBusPendingCallWatcher::finished, &loop, &QEventLoop::quit);
    loop.exec();
    require(!call.isError(), "the service answers");
}

bool DbusService::handleMessage(const QDBusMessage& aMessage, const QDBusConnection& aConnection)
{
    const QMutexLocker locker(&mMutex);
    return aConnection.send(aMessage.createReply(mAnswers.value(aMessage.member())));
}

} // namespace HmiFuzz
