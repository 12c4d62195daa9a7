#include "DbusService.h"

#include "Surroundings.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDeadlineTimer>
#include <QEventLoop>

namespace HmiFuzz {

static QString nameOf(const char* aService)
{
    return QStringLiteral("com.korvex.") + QLatin1String(aService);
}

DbusService& DbusService::instance()
{
    // Qt's connections go after main() as well, and in no known order.
    static DbusService* const service = new DbusService;
    return *service;
}

DbusService::DbusService()
{
    const QString address = QStringLiteral("unix:path=") + folder().filePath(QStringLiteral("bus"));
    qputenv("DBUS_SYSTEM_BUS_ADDRESS", QFile::encodeName(address));
    // Ends with this process, however that ends.
    const QString command =
        QStringLiteral("setpriv --pdeathsig KILL dbus-daemon --session --nofork --nopidfile "
                       "--print-address --address=");
    QStringList words = (command + address).split(QLatin1Char(' '));
    mDaemon.start(words.takeFirst(), words, QIODevice::ReadOnly);
    require(mDaemon.waitForReadyRead(20000), "there is a bus daemon");
    mConnection = QDBusConnection::connectToBus(address, QStringLiteral("service"));
    mConnection.registerVirtualObject(QStringLiteral("/"), this, QDBusConnection::SubPath);
    come();
}

void DbusService::come()
{
    require(mConnection.registerService(nameOf("NotificationManager")) &&
                mConnection.registerService(nameOf("UpdateManager")),
            "the names are free");
}

void DbusService::leave()
{
    mConnection.unregisterService(nameOf("NotificationManager"));
    mConnection.unregisterService(nameOf("UpdateManager"));
    settle();
}

void DbusService::signal(const char* aService, const char* aName, const QVariantList& aArguments)
{
    const QString path = QStringLiteral("/com/korvex/") + QLatin1String(aService);
    QDBusMessage message = QDBusMessage::createSignal(path, nameOf(aService), QLatin1String(aName));
    message.setArguments(aArguments);
    mConnection.send(message);
    settle();
}

void DbusService::answer(const char* aMethod, const QVariantList& aArguments)
{
    mAnswers.insert(QLatin1String(aMethod), aArguments);
    mGiven.remove(QLatin1String(aMethod));
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

void DbusService::awaitCall(const char* aMethod)
{
    const QDeadlineTimer deadline(25000);
    while (!mGiven.contains(QLatin1String(aMethod))) {
        require(!deadline.hasExpired(), "the service is called");
        settle();
    }
    settle();
}

bool DbusService::handleMessage(const QDBusMessage& aMessage, const QDBusConnection& aConnection)
{
    mGiven.insert(aMessage.member());
    return aConnection.send(aMessage.createReply(mAnswers.value(aMessage.member())));
}

} // namespace HmiFuzz
