// An application of a product that does what the environment variable PROBE says, and prints what happens to
// it.
#include <QDir>
#include <QPixmap>
#include <QPixmapCache>
#include <QQmlComponent>
#include <QTimer>
#include <csignal>
#include <cstdio>
#include <sys/resource.h>
#include <thread>

#include <hmi/core/foundation/SingletonCpp.h>
#include <hmi/shared/LifecycleListener.h>
#include <hmi/shared/application/Application.h>
#include <hmi/shared/application/PerfEventPolicyMetron.h>
#include <hmi/shared/application/modules/ModuleManager.h>
#include <hmi/shared/services/TaskStatusReceiverPermissions.h>
#include <hmi/shared/settings/SettingsManager.h>

using namespace Hmi::Shared;

namespace {

bool isWanted(const char* aWord) { return qgetenv("PROBE").split(' ').contains(aWord); }

void say(const QString& aLine)
{
    std::printf("%s\n", qUtf8Printable(aLine));
    std::fflush(stdout);
}

template <int Number>
class Service : public Hmi::Core::SingletonCpp<Service<Number>>
{
public:
    ~Service() override { say(QStringLiteral("service %1 gone").arg(Number)); }
};

class Module : public LifecycleListener
{
public:
    explicit Module(const QString& aName) : mName(aName)
    {
        ModuleManager::instance()->registerListener(this);
    }

    QString getName() const override { return mName; }
    bool initialize() override
    {
        say(mName + QStringLiteral(" up"));
        return !isWanted("fail") || mName != QLatin1String("radio");
    }
    void deInitialize() override
    {
        say(mName + QStringLiteral(" down"));
        if (isWanted("hang") && mName == QLatin1String("radio"))
            for (;;)
                std::this_thread::sleep_for(std::chrono::hours(1));
    }
    void deInitializeLate() override { say(mName + QStringLiteral(" late")); }

private:
    const QString mName;
};

class Probe : public Application
{
public:
    Probe(int& aCount, char** aArguments) : Application(aCount, aArguments, QStringLiteral("probe")) {}
    ~Probe() override { requestShutdown(); }

protected:
    QString getConfigFile() const override { return QDir::current().filePath(QStringLiteral("probe.ini")); }
    bool initModules() override
    {
        Service<1>::instance();
        Service<2>::instance();
        if (!mMap)
            mMap = std::make_unique<Module>(QStringLiteral("map"));
        if (!mRadio)
            mRadio = std::make_unique<Module>(QStringLiteral("radio"));
        if (isWanted("task") && !mTaskDone) {
            holdBack();
            return false;
        }
        setPermissionsTask(std::make_unique<TaskStatusReceiverPermissions>());
        return !isWaitingForTask() && Application::initModules();
    }
    void initServices() override
    {
        if (!isWanted("blocking"))
            initNonBlockingModules();
    }
    QString loadScreen()
    {
        QQmlComponent screen(getQmlEngine());
        screen.setData("import QtQml 2.15\nimport Hmi.Core 1.0\nimport hmi.shared 1.0\nimport "
                       "hmi.navigation.guidance 1.0\nQtObject { objectName: typeof SettingsManager }",
                       QUrl());
        const std::unique_ptr<QObject> object(screen.create());
        return object ? QStringLiteral("screen ") + object->objectName() : screen.errorString();
    }
    void initViewerApp() override
    {
        if (isWanted("signal-in-init"))
            std::raise(SIGTERM);
        say(isWanted("import") ? loadScreen() : QStringLiteral("screens"));
    }
    void postInit() override
    {
        if (isWanted("trim")) {
            QPixmapCache::insert(QStringLiteral("picture"), QPixmap(1, 1));
            handleTrimMemoryQtThread(MemoryLevelBackgroundMajor);
            say(QStringLiteral("trimmed %1").arg(!QPixmapCache::find(QStringLiteral("picture"), nullptr)));
        }
        smPostInitCallbackHandler.addCallback([] { say(QStringLiteral("callback")); });
        handleApplicationStartupComplete(true);
        const SettingsManager* const settings = SettingsManager::instance();
        say(QStringLiteral("settings %1 %2")
                .arg(settings->getSettingValue(SettingsManager::FirstBootName).toString(),
                     settings->getSettingValue(SettingsManager::VersionPreviousName).toString()));
        QTimer::singleShot(0, this, [] { say(QStringLiteral("started")); });
        if (isWanted("request-after-init"))
            requestShutdown();
    }
    void finishTask() override { mTaskDone = true; }
    void clearViewerApp() override { say(QStringLiteral("screens gone")); }
    void deInitServices() override
    {
        if (!isWanted("stays"))
            deInitNonBlockingModules();
    }

private:
    void holdBack()
    {
        auto task = std::make_unique<TaskStatusReceiver>();
        TaskStatusReceiver* const receiver = task.get();
        setInstallationTask(std::move(task));
        if (isWanted("task-waits")) {
            QTimer::singleShot(0, this, [] { say(QStringLiteral("started")); });
            return;
        }
        const auto status =
            isWanted("task-fails") ? TaskStatusReceiver::TaskFailed : TaskStatusReceiver::TaskSucceeded;
        QTimer::singleShot(0, receiver, [=] { receiver->setTaskStatus(status); });
    }

    std::unique_ptr<Module> mMap;
    std::unique_ptr<Module> mRadio;
    bool mTaskDone = false;
};

} // namespace

int main(int argc, char** argv)
{
    const rlimit noCore{0, 0};
    ::setrlimit(RLIMIT_CORE, &noCore);
    Probe probe(argc, argv);
    if (isWanted("signal-before-init"))
        std::raise(SIGTERM);
    if (isWanted("request-before-init"))
        Application::requestShutdown();
    probe.init();
    if (isWanted("twice"))
        probe.init();
    if (isWanted("quit") || isWanted("request-before-init"))
        QTimer::singleShot(0, &probe, &QCoreApplication::quit);
    const int status = QCoreApplication::exec();
    QStringList markers;
    for (const Metron::Event& event :
         qSharedPointerCast<PerfEventPolicyMetron>(probe.getPerfEventPolicy())->getEvents())
        if (event.name.startsWith(QLatin1String("hmi/probe/")))
            markers << event.name.mid(10);
    say(QStringLiteral("markers ") + markers.join(QLatin1Char(' ')));
    return status;
}
