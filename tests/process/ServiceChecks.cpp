#include "Simulator.h"

#include <QAbstractItemModel>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTimer>
#include <hmi/core/foundation/InstanceTracker.h>
#include <hmi/shared/qml/SharedQmlModule.h>
#include <hmi/shared/services/NotificationListModel.h>
#include <hmi/shared/services/OumSim.h>
#include <hmi/shared/services/SystemUpdateManager.h>
#include <tests/support/ExpectedMessages.h>
#include <tests/support/PrivateBus.h>

using namespace Hmi::Shared;
using HmiTest::waitUntil;
using Manager = SystemUpdateManager;

namespace {

/** The services of a head unit as the simulator's process has them, on a bus that is there for all checks. */
class SystemServices : public testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        static const bool sListens = HmiTest::PrivateBus::start();
        ASSERT_TRUE(sListens);
    }
    void TearDown() override { Hmi::Core::InstanceTracker::deleteInstancesCpp(); }

    void serve()
    {
        simulator = std::make_unique<Simulator>(
            QStringList{QStringLiteral("--services"), QStringLiteral("update,notifications")});
        EXPECT_TRUE(simulator->says("serving com.korvex.UpdateManager"));
        EXPECT_TRUE(simulator->answers("update bandwidth 20000000000", "bandwidth 20000000000"));
        EXPECT_TRUE(simulator->answers("update pace 20", "pace 20"));
    }
    /** What the services were called since the last time, without the last call, which asks for that. */
    QByteArray calls()
    {
        Manager::instance()->checkForUpdates();
        EXPECT_TRUE(simulator->says("call CheckForUpdates"));
        QByteArray before;
        for (const QByteArray& line : simulator->getBefore().split('\n'))
            before += line.startsWith("call ") ? line.mid(5) + ';' : QByteArray();
        return before;
    }

    std::unique_ptr<Simulator> simulator;
};

/** The manager, with a diary of its signals. */
class Update : public SystemServices
{
protected:
    void SetUp() override
    {
        manager = Manager::instance();
        const auto note = [this](const char* aWhat, auto aValue) {
            return [this, aWhat, aValue] { diary << QLatin1String(aWhat) + QVariant(aValue()).toString(); };
        };
        Manager* const m = manager;
        QObject::connect(m, &Manager::stateChanged, note("state ", [m] { return int(m->getState()); }));
        QObject::connect(m, &Manager::percentChanged, [m, this] { percents << m->getPercent(); });
        QObject::connect(m, &Manager::installPercentChanged,
                         [m, this] { installPercents << m->getInstallPercent(); });
        QObject::connect(m, &Manager::downloadSizeChanged,
                         note("size ", [m] { return m->getDownloadSize(); }));
        QObject::connect(m, &Manager::versionChanged, note("version ", [m] { return m->getVersion(); }));
        QObject::connect(m, &Manager::updateComplete, note("complete", [] { return QString(); }));
    }
    void follow()
    {
        serve();
        manager->init();
        manager->init();
        // The bus knows what is listened to when a later call has come through.
        calls();
    }
    bool reaches(Manager::UpdateState aState)
    {
        return waitUntil([=] { return manager->getState() == aState; });
    }
    std::string told() { return HmiTest::joined(std::exchange(diary, {})); }
    /** The way to a state, through the service's signals and the driver's actions. */
    void bringTo(int aState)
    {
        manager->resetUpdateProcess();
        if (aState == Manager::UpdateStateUpdateDownloadable || aState == Manager::UpdateStateDownloading ||
            aState == Manager::UpdateStateDownloadPaused)
            manager->onOumDownloadableUpdatesChanged({QStringLiteral("url")});
        if (aState == Manager::UpdateStateDownloading || aState == Manager::UpdateStateDownloadPaused)
            manager->startDownload();
        if (aState == Manager::UpdateStateDownloadPaused)
            manager->pauseDownload();
        if (aState == Manager::UpdateStateUpdateAvailable)
            manager->onOumAvailableUpdatesChanged({QStringLiteral("path")});
        const int phases[] = {Manager::UpdateStateVerifying, Manager::UpdateStateInstalling,
                              Manager::UpdateStateValidating};
        for (int phase = 1; phase <= 3; ++phase)
            if (phases[phase - 1] == aState)
                manager->onOumInstallStateChanged(UpdateManager::UpdateInstallState(phase), QString());
        if (aState == Manager::UpdateStateUpdateComplete || aState == Manager::UpdateStateUpdateError)
            manager->onOumInstallFinished(aState == Manager::UpdateStateUpdateComplete, QString(),
                                          QStringLiteral("failed"));
        ASSERT_EQ(int(manager->getState()), aState);
    }

    Manager* manager = nullptr;
    QStringList diary;
    QList<int> percents;
    QList<int> installPercents;
};

} // namespace

TEST_F(Update, GoesAllTheWayWithTheService)
{
    follow();
    EXPECT_EQ(manager->getState(), Manager::UpdateStateNoneAvailable);
    simulator->command("update offer http://u/1 4294968296 \"3.9 ä\"");
    EXPECT_TRUE(reaches(Manager::UpdateStateUpdateDownloadable));
    EXPECT_EQ(told(), "size 1000,version 3.9 ä,state 1") << "the low 32 bits of the size";
    manager->startDownload();
    manager->pauseDownload();
    manager->resumeDownload();
    EXPECT_EQ(told(), "state 2,state 3,state 2");
    EXPECT_TRUE(reaches(Manager::UpdateStateUpdateAvailable));
    EXPECT_EQ(percents.last(), 100);
    manager->startInstallation();
    EXPECT_TRUE(reaches(Manager::UpdateStateUpdateComplete));
    EXPECT_TRUE(waitUntil([&] { return diary.contains(QStringLiteral("complete")); }));
    EXPECT_EQ(told(), "state 4,state 5,state 8,state 5,state 6,state 9,complete");
    EXPECT_EQ(installPercents.last(), 100);
    // And once more, to a failure.
    simulator->command("update fail \"disk full\"");
    simulator->command("update offer http://u/2 1000 4.0");
    EXPECT_TRUE(reaches(Manager::UpdateStateUpdateDownloadable));
    manager->startDownload();
    EXPECT_EQ(percents.last(), 0) << "from the beginning";
    EXPECT_TRUE(reaches(Manager::UpdateStateUpdateAvailable));
    manager->startInstallation();
    EXPECT_TRUE(reaches(Manager::UpdateStateUpdateError));
    EXPECT_EQ(diary.count(QStringLiteral("complete")), 0);
}

TEST_F(Update, IgnoresWhatDoesNotFitItsState)
{
    follow();
    HmiTest::expectWarning(QStringLiteral(
        "The update service announced an empty list of downloadable updates; it was ignored."));
    manager->onOumDownloadableUpdatesChanged({});
    const auto list = [this](const QStringList& aUrls) {
        return [=] { manager->onOumDownloadableUpdatesChanged(aUrls); };
    };
    struct Row
    {
        std::function<void()> act;
        QByteArray call; ///< where it fits
        QSet<int> from;
        int to;
    };
    const Row rows[] = {
        {[this] { manager->startDownload(); }, "DownloadUpdate \"url\";", {1}, 2},
        {[this] { manager->pauseDownload(); }, "PauseDownload \"url\";", {2}, 3},
        {[this] { manager->resumeDownload(); }, "ResumeDownload \"url\";", {3}, 2},
        {[this] { manager->startInstallation(); }, "InstallUpdate \"path\";", {4}, 5},
        {[this] { manager->retryInstallation(); }, "InstallUpdate \"failed\";", {10}, 5},
        {list({QStringLiteral("url")}), "GetDownloadableUpdateInfo \"url\";", {0, 9, 10}, 1},
        {[this] { manager->onOumAvailableUpdatesChanged({}); }, "", {4}, 0},
        {[this] { manager->onOumInstallStateChanged(UpdateManager::UpdateInstallState(0), {}); }, "", {}, 0},
        {[this] { manager->onOumInstallStateChanged(UpdateManager::UpdateInstallState(4), {}); }, "", {}, 0},
        {[this] { manager->onOumDownloadComplete(QString(), QString()); }, "", {}, 0},
        {[this] { manager->onOumAutoInstallPending(QString()); }, "", {}, 0},
        {[this] { manager->onOumAutoRebootPending(); }, "", {}, 0}};
    for (const Row& row : rows) {
        for (const int state : {0, 1, 2, 3, 4, 5, 6, 8, 9, 10}) {
            SCOPED_TRACE(std::to_string(&row - rows) + " in " + std::to_string(state));
            bringTo(state);
            calls();
            told();
            row.act();
            const bool fits = row.from.contains(state);
            EXPECT_EQ(int(manager->getState()), fits ? row.to : state);
            EXPECT_EQ(calls(), fits ? row.call : QByteArray());
            EXPECT_EQ(diary.isEmpty(), !fits);
        }
    }
}

TEST_F(Update, ShowsNumbersAndTextsAsTheyAreTold)
{
    follow();
    const QByteArray version(10000, 'v');
    for (const int percent : {150, -5, -5, 42})
        simulator->command("update signal DownloadProgress url " + QByteArray::number(percent));
    EXPECT_TRUE(waitUntil([&] { return manager->getPercent() == 42; }));
    EXPECT_EQ(percents, (QList<int>{150, -5, 42}));
    simulator->command("update signal InstallProgress 7 path 101");
    EXPECT_TRUE(waitUntil([&] { return manager->getInstallPercent() == 101; }));
    simulator->command("update signal InstallStateChanged 7 path");
    simulator->command("update offer u 18446744073709551615 " + version);
    EXPECT_TRUE(reaches(Manager::UpdateStateUpdateDownloadable));
    EXPECT_EQ(manager->getDownloadSize(), -1);
    EXPECT_EQ(manager->getVersion().size(), version.size());
}

TEST_F(Update, WaitsForTheAnswerWithAnOpenScreenAndInOrder)
{
    follow();
    struct Row
    {
        QByteArray fault;
        std::string told;
    };
    const std::string unknown = "size 0,version ,state 1";
    const Row rows[] = {{"service late 300", "size 1000,version 3.9,state 1"},
                        {"service refuse", unknown},
                        {"service garble", unknown},
                        {"service late 6000", unknown}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.fault.toStdString());
        bringTo(Manager::UpdateStateUpdateError);
        told();
        simulator->command("service honest");
        EXPECT_TRUE(simulator->answers(row.fault, row.fault));
        int ticks = 0;
        QTimer timer;
        QObject::connect(&timer, &QTimer::timeout, [&] { ++ticks; });
        timer.start(20);
        simulator->command("update offer u 1000 3.9");
        // What comes during the wait belongs behind it.
        simulator->command("update signal DownloadProgress u 7");
        simulator->command("update signal AvailableUpdatesChanged [\"p\"]");
        EXPECT_TRUE(reaches(Manager::UpdateStateUpdateAvailable));
        EXPECT_EQ(told(), row.told + ",state 4");
        EXPECT_TRUE(ticks >= 10 || !row.fault.contains("late"));
    }
}

TEST_F(Update, OutlivesItsServiceAndHearsNobodyElse)
{
    // Nobody is there yet: calls are lost, and nothing waits.
    manager->init();
    EXPECT_FALSE(manager->getServiceAvailable());
    QObject::connect(manager, &Manager::serviceAvailableChanged, [this] {
        diary << (manager->getServiceAvailable() ? QStringLiteral("there") : QStringLiteral("away"));
    });
    manager->checkForUpdates();
    manager->onOumDownloadableUpdatesChanged({QStringLiteral("u")});
    EXPECT_EQ(told(), "size 0,version ,state 1");
    manager->resetUpdateProcess();
    serve();
    simulator->command("update bandwidth 1000");
    simulator->command("update offer u 1000000 1");
    EXPECT_TRUE(reaches(Manager::UpdateStateUpdateDownloadable));
    EXPECT_EQ(told(), "state 0,there,size 1000000,version 1,state 1");
    manager->startDownload();
    EXPECT_TRUE(simulator->says("call DownloadUpdate \"u\""));
    EXPECT_TRUE(simulator->answers("service vanish update", "vanished com.korvex.UpdateManager"));
    simulator->command("update signal DownloadProgress u 66");
    EXPECT_TRUE(simulator->answers("service return update", "serving com.korvex.UpdateManager"));
    // A stranger, before the service itself.
    QDBusConnection stranger =
        QDBusConnection::connectToBus(QDBusConnection::SystemBus, QStringLiteral("stranger"));
    QDBusMessage lie = QDBusMessage::createSignal(QStringLiteral("/com/korvex/UpdateManager"),
                                                  QStringLiteral("com.korvex.UpdateManager"),
                                                  QStringLiteral("DownloadProgress"));
    lie.setArguments({QStringLiteral("u"), 77});
    EXPECT_TRUE(stranger.send(lie));
    EXPECT_EQ(stranger
                  .call(QDBusMessage::createMethodCall(
                      QStringLiteral("org.freedesktop.DBus"), QStringLiteral("/"),
                      QStringLiteral("org.freedesktop.DBus"), QStringLiteral("GetId")))
                  .type(),
              QDBusMessage::ReplyMessage);
    simulator->command("update signal DownloadProgress u 88");
    EXPECT_TRUE(waitUntil([&] { return manager->getPercent() == 88; }));
    EXPECT_FALSE(percents.contains(66) || percents.contains(77));
    EXPECT_EQ(told(), "state 2,away,there");
    QDBusConnection::disconnectFromBus(QStringLiteral("stranger"));
}

TEST_F(Update, IsDrivenByTheOldSimulationWhereTheirSignalsMatch)
{
    for (const char* slot :
         {"onOumDownloadComplete()", "onOumDownloadProgress( int )", "onOumInstallComplete( QString )",
          "onOumUpdateComplete( QString )", "onOumUpdateError( QString )", "onOumUpdateProgress( int )",
          "onOumValidationComplete( QString )"})
        HmiTest::expectMessageMatching(
            QtWarningMsg,
            QStringLiteral("QObject::connect: No such slot Hmi::Shared::SystemUpdateManager::%1.*")
                .arg(QRegularExpression::escape(QLatin1String(slot))));
    OumSim simulation;
    emit simulation.onOumDownloadableUpdatesChanged({QStringLiteral("u")});
    EXPECT_EQ(manager->getState(), Manager::UpdateStateUpdateDownloadable);
}

TEST_F(SystemServices, KeepNotificationsThroughTheWrapper)
{
    serve();
    NotificationManagerWrapper wrapper;
    QStringList told;
    const auto note = [&](const char* aWhat) {
        return [&told, aWhat](const int& aId) {
            told << QStringLiteral("%1 %2").arg(QLatin1String(aWhat)).arg(aId);
        };
    };
    QObject::connect(&wrapper, &NotificationManagerWrapper::NotificationAdded, note("added"));
    QObject::connect(&wrapper, &NotificationManagerWrapper::NotificationDismissed, note("dismissed"));
    QObject::connect(&wrapper, &NotificationManagerWrapper::NotificationShowRequested, note("show"));
    QObject::connect(&wrapper, &NotificationManagerWrapper::NotificationLocationUpdated, note("moved"));
    const QString type = QStringLiteral("fuel");
    const int id = wrapper.AddNotification(type, QStringLiteral("low"), true, 50.5, 8.25);
    EXPECT_GT(id, 0);
    EXPECT_EQ(wrapper.GetCurrentNotifications().value(uint(id)).typeSpecificId, QStringLiteral("low"));
    EXPECT_EQ(QVariant::fromValue(wrapper.GetCurrentNotifications()).value<QAssociativeIterable>().size(), 1)
        << "C++ walks it as an association";
    EXPECT_TRUE(wrapper.ShowNotification(id));
    EXPECT_TRUE(wrapper.UpdateNotificationLocation(id, true, 51, 9));
    EXPECT_TRUE(wrapper.DismissNotification(id));
    EXPECT_FALSE(wrapper.DismissNotification(id));
    EXPECT_TRUE(wrapper.GetIsNotificationEnabledFromType(type));
    EXPECT_TRUE(wrapper.UpdateNotificationEnabled(type, false));
    EXPECT_FALSE(wrapper.GetIsNotificationEnabledFromType(type));
    EXPECT_EQ(wrapper.AddNotification(type, QStringLiteral("low"), false, 0, 0), 0) << "switched off";
    EXPECT_TRUE(waitUntil([&] { return told.size() == 4; }));
    EXPECT_EQ(HmiTest::joined(told), "added 1,show 1,moved 1,dismissed 1");
    // The default values, and in time.
    for (const QByteArray fault : {"service refuse", "service garble", "service mute"}) {
        EXPECT_TRUE(simulator->answers(fault, fault));
        EXPECT_EQ(wrapper.AddNotification(QStringLiteral("a"), QStringLiteral("b"), false, 0, 0), 0);
        EXPECT_TRUE(wrapper.GetCurrentNotifications().isEmpty());
        EXPECT_FALSE(fault != "service mute" && wrapper.ShowNotification(1));
    }
    simulator.reset();
    EXPECT_FALSE(wrapper.GetIsNotificationEnabledFromType(type)) << "nobody is there";
}

TEST_F(SystemServices, AreAskedForTheirListUntilTheyGiveIt)
{
    HmiTest::expectMessageMatching(QtWarningMsg, QStringLiteral("The notification service did not list .*"));
    serve();
    EXPECT_TRUE(simulator->answers("notify add door open", "added 1"));
    EXPECT_TRUE(simulator->answers("service refuse", "service refuse"));
    const NotificationListModel model;
    EXPECT_TRUE(waitUntil([&] { return !model.getServiceAvailable(); }));
    // Refused once more, and no second warning.
    EXPECT_TRUE(simulator->says("call GetCurrentNotifications"));
    EXPECT_TRUE(simulator->says("call GetCurrentNotifications"));
    simulator->command("notify add fuel low 50 8");
    EXPECT_TRUE(waitUntil([&] { return model.getCount() == 1; }));
    EXPECT_TRUE(simulator->answers("service honest", "service honest"));
    ASSERT_TRUE(waitUntil([&] { return model.getCount() == 2; }));
    EXPECT_EQ(model.at(0)->getNotificationId(), 1);
    EXPECT_EQ(model.at(1)->getLatitude(), 50);
}

TEST_F(SystemServices, AreMirroredInAListForViews)
{
    registerSharedModule(false, false);
    QQmlEngine engine;
    QQmlComponent component(&engine);
    component.setData(R"(
import QtQml 2.15
import hmi.shared 1.0
QtObject {
    property string line
    property int count: list.count
    property NotificationListModel list: NotificationListModel {
        onShowRequested: line = "show " + notificationId
    }
    property var manager: NotificationManagerWrapper {
        onNotificationLocationUpdated: line = ["moved", notificationId, hasLocation, latitude, longitude].join(" ")
    }
    function describe() {
        const notifications = manager.GetCurrentNotifications()
        return Object.keys(notifications).map(id => id + notifications[id].typeSpecificId).join()
    }
})",
                      QUrl());
    // Without a service the list is empty, and fills when one comes.
    const std::unique_ptr<QObject> view(component.create());
    ASSERT_TRUE(view) << component.errorString().toStdString();
    auto* const model = view->property("list").value<QAbstractItemModel*>();
    const QHash<int, QByteArray> roles = model->roleNames();
    const auto shows = [&](const QString& aLine) {
        QString line;
        const bool shown = waitUntil([&] {
            QStringList rows;
            for (int row = 0; row < view->property("count").toInt(); ++row) {
                QStringList texts;
                for (const char* role :
                     {"notificationId", "notificationType", "description", "priority", "latitude"})
                    texts << model->index(row, 0).data(roles.key(role)).toString();
                rows << texts.join(QLatin1Char(' '));
            }
            line = rows.join(QLatin1Char(','));
            return line == aLine;
        });
        EXPECT_TRUE(shown) << line.toStdString();
    };
    EXPECT_TRUE(waitUntil([&] { return !model->property("serviceAvailable").toBool(); }));
    serve();
    simulator->command("notify add door open");
    shows(QStringLiteral("1 door open 0 999"));
    simulator->command("notify add fuel low 50.5 8");
    shows(QStringLiteral("1 door open 0 999,2 fuel low 0 50.5"));
    simulator->command("notify move 2 51 9");
    shows(QStringLiteral("1 door open 0 999,2 fuel low 0 51"));
    simulator->command("notify add ice black\nnotify priority 3 4");
    shows(QStringLiteral("1 door open 0 999,2 fuel low 0 51,3 ice black 4 999"));
    simulator->command("notify dismiss 3");
    shows(QStringLiteral("1 door open 0 999,2 fuel low 0 51"));
    EXPECT_TRUE(waitUntil([&] { return view->property("line") == QStringLiteral("moved 2 true 51 9"); }));
    QVariant described;
    QMetaObject::invokeMethod(view.get(), "describe", Q_RETURN_ARG(QVariant, described));
    EXPECT_EQ(described.toString(), QStringLiteral("1open,2low"));
    simulator->command("notify show 2");
    EXPECT_TRUE(waitUntil([&] { return view->property("line") == QStringLiteral("show 2"); }));
    simulator->command("notify priority 2 5");
    EXPECT_TRUE(
        simulator->answers("service vanish notifications", "vanished com.korvex.NotificationManager"));
    shows(QString());
    EXPECT_FALSE(model->property("serviceAvailable").toBool());
    EXPECT_TRUE(simulator->answers("service return notifications", "serving com.korvex.NotificationManager"));
    shows(QStringLiteral("1 door open 0 999,2 fuel low 5 999"));
    EXPECT_TRUE(model->property("serviceAvailable").toBool());
    QMetaObject::invokeMethod(model, "dismiss", Q_ARG(int, 1));
    shows(QStringLiteral("2 fuel low 5 999"));
}
