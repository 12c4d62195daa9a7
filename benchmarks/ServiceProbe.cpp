// Measures the clients of the notification service: hmi_service_probe calls|slot|qml|bounds <count>
// The service is this program in a process of its own, on the system bus. Prints lines of a word and
// nanoseconds.

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusConnectionInterface>
#include <QDBusInterface>
#include <QDBusMessage>
#include <QDBusReply>
#include <QEventLoop>
#include <QProcess>
#include <QQmlComponent>
#include <QQmlContext>
#include <QQmlEngine>
#include <QSettings>
#include <QTemporaryDir>
#include <QTimer>
#include <algorithm>
#include <csignal>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "NotificationService.h"
#include "Require.h"
#include "Times.h"
#include <hmi/core/foundation/Initialization.h>
#include <hmi/shared/application/PerfEventPolicyMetron.h>
#include <hmi/shared/qml/SharedQmlModule.h>
#include <hmi/shared/services/NotificationManagerWrapper.h>
#include <hmi/shared/services/SystemUpdateManager.h>

using NotificationMgr::NotificationList;

static const QString Service = QStringLiteral("com.korvex.NotificationManager");
static const QString Path = QStringLiteral("/com/korvex/NotificationManager");
static const QString IsEnabled = QStringLiteral("GetIsNotificationEnabledFromType");
static const QString List = QStringLiteral("GetCurrentNotifications");
static const QString Type = QStringLiteral("SoftwareUpdate");

static constexpr int CallTimeout = 1900; ///< milliseconds; the client's

static QDBusMessage methodCall(const QString& aMethod, const QVariantList& aArguments)
{
    QDBusMessage message = QDBusMessage::createMethodCall(Service, Path, Service, aMethod);
    message.setArguments(aArguments);
    return message;
}

static void printDelays(const char* aWhat, const std::vector<double>& aDelays)
{
    std::printf("%s/median %f\n%s/percentile99 %f\n", aWhat, greatestOf(aDelays, 0.5), aWhat,
                greatestOf(aDelays, 0.99));
}

/** What is written by hand instead of the wrapper. */
template <class T>
static T callBare(const QString& aMethod, const QVariantList& aArguments = {})
{
    const QDBusMessage reply =
        QDBusConnection::systemBus().call(methodCall(aMethod, aArguments), QDBus::Block, CallTimeout);
    return reply.type() == QDBusMessage::ReplyMessage ? qdbus_cast<T>(reply.arguments().value(0)) : T();
}

/** Medians of so many calls of each kind, a few at a time in turn. */
static void measureCalls(int aCount)
{
    Hmi::Shared::NotificationManagerWrapper wrapper;
    QDBusInterface interface(Service, Path, Service, QDBusConnection::systemBus());
    interface.setTimeout(CallTimeout);
    const auto listed = [](const NotificationList& aList) { return aList.size() == ListedNotifications; };
    const std::map<std::string, std::function<bool()>> calls = {
        {"enabled/wrapper", [&] { return wrapper.GetIsNotificationEnabledFromType(Type); }},
        {"enabled/bare", [&] { return callBare<bool>(IsEnabled, {Type}); }},
        {"enabled/interface", [&] { return QDBusReply<bool>(interface.call(IsEnabled, Type)).value(); }},
        {"list/wrapper", [&] { return listed(wrapper.GetCurrentNotifications()); }},
        {"list/bare", [&] { return listed(callBare<NotificationList>(List)); }},
        {"list/interface", [&] { return listed(QDBusReply<NotificationList>(interface.call(List))); }}};
    constexpr int Turn = 10;
    std::map<std::string, std::vector<double>> times;
    for (int count = 0; count < aCount; count += Turn)
        for (const auto& [name, call] : calls)
            for (int index = 0; index < Turn; ++index) {
                const double start = monotonicTime();
                require(call(), name.c_str());
                times[name].push_back(monotonicTime() - start);
            }
    for (const auto& [name, values] : times)
        printDelays(name.c_str(), values);
}

namespace {

/** When notifications were sent and when they were here. */
class Arrivals : public QObject
{
    Q_OBJECT

public:
    /** So many notifications, each of which arrives at so many places. */
    Arrivals(int aCount, int aPlaces) : mCount(aCount), mLeft(aCount * aPlaces) {}

    /** Returns when all have arrived; two times what they take is too long. */
    void wait() const
    {
        QTimer::singleShot(10 * mCount + 2000, this, [] { require(false, "getting every notification"); });
        QCoreApplication::exec();
        require(std::is_sorted(mSent.begin(), mSent.end()), "getting every notification, in order");
    }

    void start() const
    {
        QDBusConnection::systemBus().asyncCall(methodCall(QStringLiteral("start"), {mCount}));
    }
    /** A binding's value: how many there are, those of the beginning included. */
    Q_INVOKABLE void count(int aCount)
    {
        if (aCount == ListedNotifications)
            start();
        if (aCount > ListedNotifications)
            arrive(mCounted, monotonicTime());
    }

    std::vector<double> handlerDelays() const { return since(mHandled); }
    std::vector<double> bindingDelays() const { return since(mCounted); }

public slots:
    void add(int, const QString&, const QString&, bool, double aSent, double)
    {
        mSent.push_back(aSent);
        arrive(mHandled, monotonicTime());
    }

private:
    void arrive(std::vector<double>& aTimes, double aTime)
    {
        aTimes.push_back(aTime);
        if (--mLeft == 0)
            QCoreApplication::quit();
    }

    std::vector<double> since(std::vector<double> aTimes) const
    {
        require(aTimes.size() == mSent.size(), "getting every notification once");
        std::transform(aTimes.begin(), aTimes.end(), mSent.begin(), aTimes.begin(), std::minus<>());
        return aTimes;
    }

    const int mCount;
    int mLeft;
    std::vector<double> mSent;
    std::vector<double> mHandled;
    std::vector<double> mCounted;
};

} // namespace

static void measureSlot(int aCount)
{
    Arrivals arrivals(aCount, 1);
    require(QDBusConnection::systemBus().connect(Service, Path, Service, QStringLiteral("NotificationAdded"),
                                                 &arrivals,
                                                 SLOT(add(int, QString, QString, bool, double, double))),
            "connecting to the signal");
    QTimer::singleShot(0, &arrivals, &Arrivals::start);
    arrivals.wait();
    printDelays("slot", arrivals.handlerDelays());
}

static void measureQml(int aCount)
{
    const QTemporaryDir folder;
    const QString configuration = folder.filePath(QStringLiteral("services.ini"));
    QSettings(configuration, QSettings::IniFormat)
        .setValue(QStringLiteral("HmiShared/SystemUpdateEnabled"), false);
    Hmi::Core::initialize(QSharedPointer<Hmi::Shared::PerfEventPolicyMetron>::create(), configuration, {});
    Hmi::Shared::registerQmlModules();
    Arrivals arrivals(aCount, 2);
    QQmlEngine engine;
    engine.rootContext()->setContextProperty(QStringLiteral("arrivals"), &arrivals);
    QQmlComponent component(&engine);
    component.setData(R"(
        import QtQml 2.15
        import hmi.shared 1.0
        QtObject {
            property NotificationManagerWrapper manager: NotificationManagerWrapper {
                onNotificationAdded: arrivals.add(notificationId, notificationType, typeId, hasLocation, latitude,
                                                  longitude)
            }
            property NotificationListModel list: NotificationListModel {}
            property int shown: list.count
            onShownChanged: arrivals.count(shown)
        })",
                      {});
    const std::unique_ptr<QObject> screen(component.create());
    require(screen != nullptr, qPrintable(component.errorString()));
    arrivals.wait();
    printDelays("handler", arrivals.handlerDelays());
    printDelays("binding", arrivals.bindingDelays());
}

static void printTime(const char* aWhat, const std::function<void()>& aWork)
{
    const double start = monotonicTime();
    aWork();
    std::printf("bounds/%s %f\n", aWhat, monotonicTime() - start);
}

/** How long a service that hangs is waited for. */
static void measureBounds(int)
{
    auto* const updates = Hmi::Shared::SystemUpdateManager::instance();
    updates->init();
    QEventLoop loop;
    QObject::connect(updates, &Hmi::Shared::SystemUpdateManager::serviceAvailableChanged, &loop,
                     &QEventLoop::quit);
    if (!updates->getServiceAvailable())
        loop.exec();
    Hmi::Shared::NotificationManagerWrapper wrapper;
    require(wrapper.GetIsNotificationEnabledFromType(Type), "calling the service");
    const uint service = QDBusConnection::systemBus().interface()->servicePid(Service);
    require(service != 0 && ::kill(static_cast<pid_t>(service), SIGSTOP) == 0, "stopping the service");
    printTime("call", [&] { wrapper.GetIsNotificationEnabledFromType(Type); });
    printTime("update", [&] { updates->onOumDownloadableUpdatesChanged({QStringLiteral("update")}); });
}

static void measure(const std::string& aCommand, int aCount)
{
    static const std::map<std::string, void (*)(int)> Commands = {
        {"calls", measureCalls}, {"slot", measureSlot}, {"qml", measureQml}, {"bounds", measureBounds}};
    QProcess service;
    service.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    service.start(QCoreApplication::applicationFilePath(), {QStringLiteral("serve")});
    require(service.waitForReadyRead(), "running the service");
    Commands.at(aCommand)(aCount);
    service.kill();
    service.waitForFinished();
}

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    const std::string command = argc > 1 ? argv[1] : "";
    require(command == "serve" || argc == 3, "running without a command and a count");
    if (command == "serve")
        NotificationService::run();
    else
        measure(command, std::atoi(argv[2]));
    return 0;
}

#include "ServiceProbe.moc"
