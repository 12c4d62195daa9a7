#include <hmi/shared/services/SystemInformationManager.h>

#include <QDir>
#include <QHostAddress>
#include <QPointer>
#include <QQmlContext>
#include <QQmlExpression>
#include <gtest/gtest.h>
#include <net/if.h>
#include <sched.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

#include <hmi/shared/services/SystemInformationNetwork.h>
#include <tests/support/FilesAndWaits.h>

using namespace HmiTest;
using namespace Hmi::Shared;

namespace {

QStringList networkNames()
{
    QStringList names;
    const QList<QObject*> networks = SystemInformationManager::instance()->getInformationNetwork();
    for (QObject* network : networks) {
        names.append(network->property("name").toString());
        for (const QString& address : network->property("ipAddresses").toStringList())
            EXPECT_FALSE(QHostAddress(address).isNull()) << qPrintable(address);
    }
    qDeleteAll(networks);
    return names;
}

/** Moves the calling thread to a network of its own, in which only the loopback interface is up. */
bool enterLoopbackNetwork()
{
    if (::unshare(CLONE_NEWNET) != 0)
        return false;
    const int socket = ::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    ifreq request = {"lo", {}};
    request.ifr_flags = IFF_UP;
    const bool isUp = ::ioctl(socket, SIOCSIFFLAGS, &request) == 0;
    ::close(socket);
    return isUp;
}

TEST(SystemInformationManager, ListsTheInterfacesThatAreUpExceptLoopback)
{
    const QDir interfaces(QStringLiteral("/sys/class/net"));
    QStringList expected;
    for (const QString& name : interfaces.entryList(QDir::AllEntries | QDir::NoDotAndDotDot, QDir::Name)) {
        const int flags =
            readFile(interfaces.filePath(name) + QStringLiteral("/flags")).trimmed().toInt(nullptr, 16);
        if ((flags & IFF_UP) && !(flags & IFF_LOOPBACK))
            expected.append(name);
    }
    QStringList names = networkNames();
    names.sort();
    EXPECT_EQ(joined(names), joined(expected));
}

TEST(SystemInformationManager, ListsNothingWhereThereIsOnlyLoopback)
{
    SystemInformationManager::instance();
    bool entered = false;
    QStringList names;
    std::thread([&] {
        entered = enterLoopbackNetwork();
        if (entered)
            names = networkNames();
    }).join();
    if (!entered)
        GTEST_SKIP() << "a network of one's own is not permitted here";
    EXPECT_EQ(joined(names), "");
}

TEST(SystemInformationManager, LeavesTheObjectsOfItsListsToTheEngine)
{
    QQmlEngine engine;
    engine.rootContext()->setContextProperty(QStringLiteral("manager"), SystemInformationManager::instance());
    QQmlExpression expression(
        engine.rootContext(), nullptr,
        QStringLiteral("manager.getInformationSubmodule().concat(manager.getInformationNetwork())"));
    QList<QPointer<QObject>> objects;
    for (int call = 0; call < 100; ++call)
        for (const QVariant& object : expression.evaluate().value<QJSValue>().toVariant().toList())
            objects.append(object.value<QObject*>());
    EXPECT_GE(objects.size(), 100);
    engine.collectGarbage();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    objects.removeAll(nullptr);
    EXPECT_TRUE(objects.isEmpty());
}

} // namespace
