#include <QPointer>
#include <QQmlContext>
#include <QQmlEngine>
#include <QQmlExpression>
#include <gtest/gtest.h>
#include <net/if.h>
#include <sys/stat.h>

#include <hmi/shared/services/ProductInfo.h>
#include <hmi/shared/services/SystemInformationManager.h>
#include <tests/support/ExpectedMessages.h>
#include <tests/support/FilesAndWaits.h>

using namespace HmiTest;
using Info = Hmi::Shared::ProductInfo;
using Manager = Hmi::Shared::SystemInformationManager;

namespace {

static_assert(Info::softwareVersionCode(3, 8, 5) == 30805 && Info::softwareVersionCode(3, 8, -1) == 30800);
static_assert(Info::softwareVersionCode(3, -1, 5) == -1 && Info::softwareVersionCode(-1, 8, 5) == -1);

TEST(ProductInfo, TakesTheFirstLineOfAFileThatHasOne)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("version"));
    const QByteArray longest(Info::MaximumLineLength, 'x');
    for (const auto& [content, expected] : {std::pair<QByteArray, QByteArray>{"V1\r\nV2\n", "V1"},
                                            {QByteArray("\xc3\x84\xff\0C\0", 6), "\xc3\x84\xef\xbf\xbd"},
                                            {"\nV2", ""},
                                            {longest + "\nV2", longest},
                                            {longest, longest}}) {
        writeFile(folder, "version", content);
        EXPECT_EQ(Info({{}, {}, file}).getSoftwareVersionString(), QString::fromUtf8(expected));
    }
    writeFile(folder, "version", longest + 'x');
    const QString pipe = folder.filePath(QStringLiteral("pipe"));
    ::mkfifo(QFile::encodeName(pipe).constData(), 0600);
    for (const QString& path : {file, pipe, folder.path(), QString()}) {
        expectMessageMatching(QtCriticalMsg, QStringLiteral("ProductInfo::getSoftwareVersionString -- .*"));
        EXPECT_EQ(Info({{}, {}, path}).getSoftwareVersionString(), QStringLiteral("XX.XX.XX"));
    }
}

TEST(ProductInfo, KeepsTheHardwareIdentityOnceItIsThere)
{
    const QTemporaryDir folder;
    const QString pcb = folder.filePath(QStringLiteral("pcb"));
    const Info info({folder.filePath(QStringLiteral("esn")), pcb, {}});
    expectCritical(QStringLiteral("Failed to read hardware ESN file"));
    expectCritical(QStringLiteral("Failed to read PCB version file"));
    EXPECT_EQ(info.getHardwareEsn() + info.getHardwareVersion(), QString());
    for (const auto& [content, expected] : {std::pair("", ""), {"E1\n", "E1"}, {"E2\n", "E1"}}) {
        writeFile(folder, "esn", content);
        EXPECT_EQ(info.getHardwareEsn(), QLatin1String(expected));
    }
    writeFile(folder, "pcb", "R3");
    EXPECT_EQ(info.getHardwareVersion() + Info({pcb, {}, {}}).getHardwareEsn(), QStringLiteral("R3R3"));
}

TEST(SystemInformationManager, ListsOnlyInterfacesThatAreUpAndNoLoopback)
{
    const QList<QObject*> networks = Manager::instance()->getInformationNetwork();
    for (const QObject* network : networks) {
        const QString name = network->property("name").toString();
        const QByteArray flags = readFile(QStringLiteral("/sys/class/net/%1/flags").arg(name)).trimmed();
        EXPECT_EQ(flags.toInt(nullptr, 16) & (IFF_UP | IFF_LOOPBACK), IFF_UP) << qPrintable(name);
    }
    qDeleteAll(networks);
}

TEST(SystemInformationManager, LeavesTheObjectsOfItsListsToTheEngine)
{
    QQmlEngine engine;
    engine.rootContext()->setContextProperty(QStringLiteral("manager"), Manager::instance());
    QQmlExpression call(engine.rootContext(), nullptr,
                        QStringLiteral("manager.getInformationSubmodule()[0]"));
    const QPointer<QObject> object = call.evaluate().value<QObject*>();
    EXPECT_FALSE(object.isNull());
    engine.collectGarbage();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_TRUE(object.isNull());
}

} // namespace
