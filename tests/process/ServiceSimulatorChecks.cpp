#include "ChildProcess.h"
#include "HeardSignals.h"
#include "Simulator.h"

#include <QDBusVirtualObject>
#include <QDir>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QXmlStreamReader>
#include <platform/bug-report/BugReportClient.h>
#include <platform/notification-manager/NotificationTypes.h>
#include <tests/support/PrivateBus.h>

using HmiTest::joined;
using HmiTest::waitUntil;

namespace {

const QString sUrl = QStringLiteral("http://maps/1");
const QString sPath = QStringLiteral("/var/updates/1.update");

QString busAddress() { return QString::fromLocal8Bit(qgetenv("DBUS_SYSTEM_BUS_ADDRESS")); }

/** The error's last part; "done" without one. */
std::string outcome(QDBusPendingCall aCall)
{
    aCall.waitForFinished();
    return aCall.isError() ? aCall.error().name().section(QLatin1Char('.'), -1).toStdString() : "done";
}

/** The side of the HMI, with what it was told. */
struct HmiObject : QDBusVirtualObject
{
    QString introspect(const QString&) const override { return {}; }
    bool handleMessage(const QDBusMessage& aMessage, const QDBusConnection&) override
    {
        QString text = aMessage.member();
        for (const QVariant& argument : aMessage.arguments())
            text += QLatin1Char(' ') + argument.toString();
        told += text;
        return true;
    }
    QStringList told;
};

class ServiceSimulatorProcess : public testing::Test, protected HeardSignals
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(HmiTest::PrivateBus::start());
        mBus = std::make_unique<QDBusConnection>(QDBusConnection::connectToBus(busAddress(), sConnection));
        simulator =
            std::make_unique<Simulator>(QStringList{QStringLiteral("--services"), QStringLiteral("all"),
                                                    QStringLiteral("--reports"), mFolder.path()});
        ASSERT_TRUE(simulator->says("serving com.korvex.BugReport"));
        update = std::make_unique<UpdateManager::UpdateManagerClient>(*mBus);
        notifications = std::make_unique<NotificationMgr::NotificationManagerClient>(*mBus);
        bugReport = std::make_unique<BugReport::BugReportClient>(*mBus);
        listen(*update, *notifications);
    }
    void TearDown() override
    {
        simulator.reset();
        update.reset();
        notifications.reset();
        bugReport.reset();
        mBus.reset();
        QDBusConnection::disconnectFromBus(sConnection);
        HmiTest::PrivateBus::stop();
    }
    static inline const QString sConnection = QStringLiteral("hmi-service-checks");
    QTemporaryDir mFolder;
    std::unique_ptr<QDBusConnection> mBus;
    std::unique_ptr<Simulator> simulator;
    std::unique_ptr<UpdateManager::UpdateManagerClient> update;
    std::unique_ptr<NotificationMgr::NotificationManagerClient> notifications;
    std::unique_ptr<BugReport::BugReportClient> bugReport;
};

} // namespace

TEST_F(ServiceSimulatorProcess, DownloadsAndInstallsInItsTime)
{
    EXPECT_TRUE(simulator->answers("update offer http://maps/1 1000000 \"2.1 \\u00e4\"",
                                   "offered http://maps/1 1000000"));
    EXPECT_TRUE(hears("Downloadable http://maps/1"));
    EXPECT_EQ(outcome(update->CheckForUpdates()), "done");
    EXPECT_TRUE(hears("Downloadable http://maps/1"));
    EXPECT_EQ(update->GetDownloadableUpdateInfo(sUrl).value().version, QStringLiteral("2.1 \u00e4"));
    EXPECT_TRUE(simulator->answers("update bandwidth 10000", "bandwidth 10000"));
    EXPECT_EQ(outcome(update->DownloadUpdate(sUrl)), "done");
    EXPECT_TRUE(simulator->says("call DownloadUpdate \"http://maps/1\""));
    EXPECT_TRUE(hears("DownloadProgress http://maps/1 0"));
    EXPECT_EQ(outcome(update->DownloadUpdate(sUrl)), "Busy");
    EXPECT_EQ(outcome(update->ResumeDownload(sUrl)), "NotRunning");
    EXPECT_EQ(outcome(update->PauseDownload(sUrl)), "done");
    EXPECT_EQ(outcome(update->PauseDownload(sUrl)), "NotRunning");
    EXPECT_EQ(outcome(update->ResumeDownload(sUrl)), "done");
    EXPECT_EQ(outcome(update->PauseDownload(sUrl)), "done");
    simulator->command("update bandwidth 4000000");
    EXPECT_TRUE(simulator->answers("update state", "download http://maps/1 0 paused"));
    QElapsedTimer clock;
    clock.start();
    EXPECT_EQ(outcome(update->DownloadUpdate(sUrl)), "done") << "as resuming it";
    EXPECT_TRUE(hears("DownloadProgress http://maps/1 100"));
    EXPECT_GE(clock.elapsed(), 230); // a quarter of a second, less what came before the pause
    EXPECT_TRUE(hears(QStringLiteral("Available ") + sPath));
    EXPECT_GE(mHeard.filter(QStringLiteral("DownloadProgress")).size(), 4);

    EXPECT_TRUE(simulator->answers("update pace 50", "pace 50"));
    clock.start();
    EXPECT_EQ(outcome(update->InstallUpdate(sPath)), "done");
    EXPECT_EQ(outcome(update->InstallUpdate(sPath)), "Busy");
    EXPECT_TRUE(hears(QStringLiteral("InstallProgress 2 %1 0").arg(sPath)));
    EXPECT_TRUE(hears(QStringLiteral("InstallProgress 2 %1 100").arg(sPath)));
    EXPECT_TRUE(hears("Available "));
    EXPECT_GE(clock.elapsed(), 150);
    EXPECT_EQ(
        joined(getHeard()),
        "Downloadable http://maps/1,Downloadable http://maps/1,Complete http://maps/1 /var/updates/1.update,"
        "Available /var/updates/1.update,State 1 /var/updates/1.update,State 2 /var/updates/1.update,"
        "State 3 /var/updates/1.update,Finished true installed /var/updates/1.update,Available ");
    EXPECT_TRUE(mHeard.filter(QStringLiteral("InstallProgress 1")).isEmpty());
    for (const auto& call :
         {update->DownloadUpdate(sUrl), update->PauseDownload(sUrl), update->InstallUpdate(sPath)})
        EXPECT_EQ(outcome(call), "InvalidArgs");
    EXPECT_EQ(outcome(update->GetDownloadableUpdateInfo(sUrl)), "InvalidArgs");
}

TEST_F(ServiceSimulatorProcess, FailsOnDemandAndSendsWhatNoServiceShould)
{
    simulator->command("update pace 20");
    simulator->command("update offer http://maps/1 0 none");
    EXPECT_TRUE(hears("Downloadable http://maps/1"));
    EXPECT_EQ(outcome(update->DownloadUpdate(sUrl)), "done");
    EXPECT_TRUE(hears(QStringLiteral("Available ") + sPath));
    EXPECT_TRUE(simulator->answers("update fail no space", "fails no space"));
    EXPECT_EQ(outcome(update->InstallUpdate(sPath)), "done");
    EXPECT_TRUE(hears(QStringLiteral("Finished false no space ") + sPath));
    simulator->command("update pace 60000");
    EXPECT_TRUE(simulator->answers("update state", "available /var/updates/1.update"));
    EXPECT_EQ(outcome(update->InstallUpdate(sPath)), "done");
    EXPECT_TRUE(simulator->answers("update state", "installation /var/updates/1.update 1 0"));
    simulator->command("update fail");
    EXPECT_TRUE(hears(QStringLiteral("Finished false failed on demand ") + sPath));

    const std::vector<std::pair<QByteArray, const char*>> rows = {
        {"update auto-install /p", "AutoInstall /p"},
        {"update auto-reboot", "AutoReboot"},
        {"update signal DownloadProgress \"a b\" 150", "DownloadProgress a b 150"},
        {"update signal DownloadProgress u -5", "DownloadProgress u -5"},
        {"update signal InstallStateChanged 7 \"\"", "State 7 "},
        {"update signal InstallFinished false \"a \\\" b\" p", "Finished false a \" b p"},
        {"update signal AvailableUpdatesChanged []", "Available "},
        {"update signal AvailableUpdatesChanged [\"a]\",\"b c\"]", "Available a]|b c"},
        {"update signal AutoRebootPending", "AutoReboot"},
        {"notify signal NotificationAdded -1 \"\" x true 999.5 0", "Added -1  x true 999.5 0"}};
    for (const auto& [command, signal] : rows) {
        simulator->command(command);
        EXPECT_TRUE(hears(signal)) << signal;
    }
    for (const char* const wrong : {"DownloadProgress u", "DownloadProgress u 5 5", "DownloadProgress u many",
                                    "InstallFinished yes a b", "AvailableUpdatesChanged [1]",
                                    "AvailableUpdatesChanged [\"a\"", "DownloadProgress \"u 5"})
        EXPECT_TRUE(simulator->answers(
            QByteArray("update signal ") + wrong,
            "error the values are to be those of " +
                QByteArray(QByteArray(wrong).startsWith("D")   ? "DownloadProgress(QString,int)"
                           : QByteArray(wrong).startsWith("I") ? "InstallFinished(bool,QString,QString)"
                                                               : "AvailableUpdatesChanged(QStringList)") +
                ", lists in the form [\"one\",\"two\"]"))
            << wrong;
    EXPECT_TRUE(simulator->answers("update signal Nothing",
                                   "error com.korvex.UpdateManager has no signal 'Nothing'"));

    const QByteArray version(10240, 'v');
    EXPECT_TRUE(simulator->answers("update offer http://maps/1 18446744073709551615 " + version,
                                   "offered http://maps/1 18446744073709551615"));
    const auto info = update->GetDownloadableUpdateInfo(sUrl).value();
    EXPECT_EQ(info.size, ~0ULL);
    EXPECT_EQ(info.version.toUtf8(), version);
    EXPECT_TRUE(simulator->answers("update offer u 1.5 v",
                                   "error 'update offer' takes a whole number of bytes, "
                                   "and quotes that close"));
    EXPECT_EQ(outcome(update->DownloadUpdate(sUrl)), "done");
    EXPECT_TRUE(simulator->answers("update withdraw http://maps/1", "withdrawn http://maps/1"));
    EXPECT_TRUE(hears("Downloadable "));
    EXPECT_EQ(outcome(update->PauseDownload(sUrl)), "InvalidArgs");
}

TEST_F(ServiceSimulatorProcess, KeepsNotifications)
{
    const QString traffic = QStringLiteral("traffic");
    EXPECT_EQ(notifications->AddNotification(traffic, QStringLiteral("jam"), true, 48.5, 9.25).value(), 1);
    EXPECT_TRUE(hears("Added 1 traffic jam true 48.5 9.25"));
    EXPECT_TRUE(simulator->says("call AddNotification \"traffic\" \"jam\" true 48.5 9.25"));
    EXPECT_TRUE(simulator->answers("notify add mail 7", "added 2"));
    EXPECT_TRUE(simulator->answers("notify priority 2 -3", "priority 2 -3"));
    EXPECT_TRUE(simulator->answers("notify move 1 -90 180", "moved 1 -90 180"));
    EXPECT_TRUE(hears("Moved 1 true -90 180"));
    EXPECT_TRUE(notifications->UpdateNotificationLocation(2, false, 999, 999).value());
    EXPECT_TRUE(hears("Moved 2 false 999 999"));
    EXPECT_TRUE(simulator->answers("notify list", "notification 1 0 \"traffic\" \"jam\" -90 180"));
    EXPECT_TRUE(simulator->says("notification 2 -3 \"mail\" \"7\""));
    const NotificationMgr::NotificationList list = notifications->GetCurrentNotifications().value();
    EXPECT_EQ(list.size(), 2);
    EXPECT_EQ(list[2].priority, -3);
    EXPECT_EQ(list[1].typeSpecificId, QStringLiteral("jam"));

    EXPECT_TRUE(notifications->UpdateNotificationEnabled(traffic, false).value());
    EXPECT_FALSE(notifications->GetIsNotificationEnabledFromType(traffic).value());
    EXPECT_TRUE(notifications->GetIsNotificationEnabledFromType(QStringLiteral("mail")).value());
    EXPECT_EQ(notifications->AddNotification(traffic, traffic, false, 0, 0).value(), 0);
    EXPECT_TRUE(notifications->ShowNotification(1).value());
    EXPECT_TRUE(hears("Show 1"));
    EXPECT_TRUE(notifications->DismissNotification(1).value());
    EXPECT_TRUE(hears("Dismissed 1"));
    for (const auto& call : {notifications->DismissNotification(1), notifications->ShowNotification(3),
                             notifications->UpdateNotificationLocation(2, true, 91, 0),
                             notifications->UpdateNotificationEnabled(QString(), false)})
        EXPECT_FALSE(QDBusPendingReply<bool>(call).value());
    EXPECT_TRUE(notifications->UpdateNotificationEnabled(traffic, true).value());
    EXPECT_EQ(notifications->AddNotification(traffic, traffic, false, 0, 0).value(), 3);
    EXPECT_TRUE(hears("Added 3 traffic traffic false 0 0"));
    EXPECT_EQ(mHeard.size(), 7);
}

TEST_F(ServiceSimulatorProcess, CreatesBugReportsAndTellsTheHmi)
{
    HmiTest::writeFile(mFolder, "other.xml", "kept");
    EXPECT_EQ(outcome(bugReport->CreateBugReport()), "done");
    const QByteArray second = "bug-report-2.xml";
    EXPECT_TRUE(simulator->answers("bug create", "created " + mFolder.path().toUtf8() + "/" + second));
    QXmlStreamReader xml(HmiTest::readFile(mFolder.filePath(QString::fromLatin1(second))));
    QStringList elements;
    while (!xml.atEnd()) {
        if (xml.readNext() == QXmlStreamReader::StartElement)
            elements += xml.name().toString();
    }
    elements.sort();
    EXPECT_FALSE(xml.hasError());
    EXPECT_EQ(joined(elements),
              "Backtrace,ErrorReport,ParserVersion,ProcessName,Product,ShutdownInfo,UnitId,logfile");
    EXPECT_TRUE(simulator->answers("bug list", "reports 2"));

    HmiObject hmi;
    mBus->registerVirtualObject(QStringLiteral("/com/korvex/BugReportHmi"), &hmi);
    EXPECT_EQ(outcome(bugReport->SetFeatures(false, true, false)), "done");
    ASSERT_TRUE(mBus->registerService(QStringLiteral("com.korvex.BugReportHmi")));
    EXPECT_TRUE(waitUntil([&] { return hmi.told.size() == 2; }));
    EXPECT_TRUE(bugReport->GetManualEnabled().value());
    EXPECT_FALSE(bugReport->GetNotificationsEnabled().value() || bugReport->GetExportEnabled().value());
    EXPECT_EQ(outcome(bugReport->SetFeatures(true, false, true)), "done");
    EXPECT_EQ(outcome(bugReport->CreateBugReport()), "Disabled");
    EXPECT_TRUE(bugReport->GetExportEnabled().value());
    EXPECT_EQ(outcome(bugReport->SetEnabled(false)), "done");
    EXPECT_FALSE(bugReport->GetExportEnabled().value());
    EXPECT_TRUE(waitUntil([&] { return hmi.told.size() == 4; }));
    EXPECT_EQ(joined(hmi.told),
              "SetEnabled true,SetFeatures false true false,SetFeatures true false true,SetEnabled false");
    mBus->unregisterService(QStringLiteral("com.korvex.BugReportHmi"));

    EXPECT_EQ(outcome(bugReport->ClearAllReports()), "done");
    EXPECT_EQ(joined(QDir(mFolder.path()).entryList(QDir::Files)), "other.xml");
}

TEST_F(ServiceSimulatorProcess, PutsFaultsOnEveryServiceAndEndsThem)
{
    const auto outcomes = [&](int aTimeout) {
        for (QDBusAbstractInterface* const one : {static_cast<QDBusAbstractInterface*>(update.get()),
                                                  static_cast<QDBusAbstractInterface*>(notifications.get()),
                                                  static_cast<QDBusAbstractInterface*>(bugReport.get())})
            one->setTimeout(aTimeout);
        return outcome(update->GetDownloadableUpdateInfo(sUrl)) + ' ' +
               outcome(notifications->AddNotification(sUrl, sUrl, false, 0, 0)) + ' ' +
               outcome(bugReport->GetManualEnabled());
    };
    simulator->command("update offer http://maps/1 5 v");
    EXPECT_TRUE(hears("Downloadable http://maps/1"));
    const std::vector<std::pair<QByteArray, std::string>> rows = {
        {"service mute", "NoReply NoReply NoReply"},
        {"service refuse", "Failed Failed Failed"},
        {"service garble", "InvalidSignature InvalidSignature InvalidSignature"},
        {"service late 60000", "NoReply NoReply NoReply"},
        {"service honest", "done done done"}};
    for (const auto& [fault, expected] : rows) {
        EXPECT_TRUE(simulator->answers(fault, fault));
        EXPECT_EQ(outcomes(expected[0] == 'N' ? 100 : 20000), expected) << fault.constData();
        if (!fault.contains("late"))
            simulator->command("service honest");
    }
    EXPECT_EQ(notifications->GetCurrentNotifications().value().size(), 3); // garbled, late and honest

    EXPECT_TRUE(simulator->answers("service late 300", "service late 300"));
    QElapsedTimer clock;
    clock.start();
    EXPECT_EQ(outcome(update->CheckForUpdates()), "done");
    EXPECT_GE(clock.elapsed(), 299);
    simulator->command("service late 60000");
    const QDBusPendingReply<bool> waiting = bugReport->GetManualEnabled();
    EXPECT_TRUE(simulator->says("call GetManualEnabled"));
    EXPECT_TRUE(simulator->answers("service honest", "service honest"));
    EXPECT_EQ(outcome(waiting), "done");

    EXPECT_TRUE(simulator->answers("service vanish update", "vanished com.korvex.UpdateManager"));
    EXPECT_EQ(outcomes(20000), "ServiceUnknown done done");
    EXPECT_TRUE(
        simulator->answers("service return com.korvex.UpdateManager", "serving com.korvex.UpdateManager"));
    EXPECT_EQ(outcomes(20000), "done done done");
    EXPECT_TRUE(simulator->answers("service vanish it", "error 'it' is not among the services"));
}

TEST_F(ServiceSimulatorProcess, SaysWhyItDoesNotStart)
{
    const QStringList plain = {QStringLiteral("--no-signal-service"), QStringLiteral("--services")};
    const QString one = QStringLiteral("notifications");
    HmiTest::writeFile(mFolder, "s.json", R"({"steps": [{"at": 0, "command": "notify list"},
        {"at": 1, "command": "update state"}]})");
    const std::vector<std::pair<QStringList, const char*>> rows = {
        {{one}, "com.korvex.NotificationManager is not to be had on the bus (it is taken)"},
        {{one, QStringLiteral("--bus"), QStringLiteral("unix:path=/none")},
         "The bus at 'unix:path=/none' cannot be reached ("},
        {{QStringLiteral("none")}, "--services is to name one at least"},
        {{QStringLiteral("update,x")},
         "'x' is no service; --services takes update, notifications, bug-report"},
        {{one, QStringLiteral("--reports"), QStringLiteral("/none")}, "'/none' is no folder"},
        {{one, QStringLiteral("--upstream"), QStringLiteral("/s")}, "--upstream needs the signal service"}};
    for (const auto& [arguments, message] : rows) {
        const ChildProcess child = ChildProcess::run(Simulator::getProgram(), plain + arguments);
        EXPECT_EQ(child.status, 1) << message;
        EXPECT_TRUE(child.output.contains(QLatin1String(message))) << qPrintable(child.output);
    }
    simulator.reset();
    const ChildProcess child = ChildProcess::run(
        Simulator::getProgram(),
        plain + QStringList{one, QStringLiteral("--scenario"), mFolder.filePath(QStringLiteral("s.json"))});
    EXPECT_EQ(child.status, 1);
    EXPECT_TRUE(child.output.contains(
        QStringLiteral("steps[1].command: a command of the services that are wanted ('update state' is no ")))
        << qPrintable(child.output);
}

TEST_F(ServiceSimulatorProcess, PlaysCommandsBesideSignals)
{
    HmiTest::writeFile(mFolder, "s.json", R"({"signals": [{"path": "Speed", "type": "int"}], "steps": [
        {"at": 4, "command": "set Speed 12"}, {"at": 2, "path": "Speed", "value": 11},
        {"at": 5, "command": "notify add mail 1", "once": true}, {"at": 6, "command": "notify add jam A8"},
        {"at": 6, "command": "notify dismiss last"}, {"at": 6, "command": "notify dismiss last"}], "loop": 10})");
    QElapsedTimer clock;
    clock.start();
    simulator = nullptr;
    Simulator plays(mFolder.filePath(QStringLiteral("socket")),
                    {QStringLiteral("--services"), QStringLiteral("notifications"), QStringLiteral("--bus"),
                     busAddress(), QStringLiteral("--scenario"), mFolder.filePath(QStringLiteral("s.json")),
                     QStringLiteral("--speed"), QStringLiteral("20")});
    EXPECT_TRUE(plays.says("value Speed 12"));
    EXPECT_TRUE(plays.says("dismissed 2"));
    EXPECT_TRUE(plays.says("error '2' is not done: there is no such notification, or the words are no "
                           "number or location"));
    EXPECT_TRUE(hears("Dismissed 3"));
    EXPECT_GE(clock.elapsed(), 16000 / 20);
    EXPECT_LT(clock.elapsed(), 16000);
    EXPECT_EQ(
        joined(mHeard),
        "Added 1 mail 1 false 0 0,Added 2 jam A8 false 0 0,Dismissed 2,Added 3 jam A8 false 0 0,Dismissed 3");
}

TEST_F(ServiceSimulatorProcess, EndsWhenTheBusIsGone)
{
    HmiTest::PrivateBus::stop();
    QProcess& process = simulator->getProcess();
    EXPECT_TRUE(waitUntil([&] { return process.state() == QProcess::NotRunning; }));
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process.exitCode(), 1);
    EXPECT_TRUE(process.readAllStandardError().contains("The bus is gone"));
}
