#include <hmi/shared/application/Application.h>

#include <QCommandLineParser>
#include <QDir>
#include <QMutexLocker>
#include <QPixmapCache>

#include <hmi/core/foundation/HmiCoreConfigs.h>
#include <hmi/core/foundation/Initialization.h>
#include <hmi/core/foundation/InstanceTracker.h>
#include <hmi/shared/application/LogMessageHandler.h>
#include <hmi/shared/application/LoggingCategory.h>
#include <hmi/shared/application/LoggingRules.h>
#include <hmi/shared/application/MeasurementRecording.h>
#include <hmi/shared/application/PageSetPolicyBase.h>
#include <hmi/shared/application/PerfEventPolicyMetron.h>
#include <hmi/shared/application/RegisteredModules.h>
#include <hmi/shared/application/modules/HmiSharedGlobal.h>
#include <hmi/shared/application/modules/ModuleManager.h>
#include <hmi/shared/qml/SharedQmlModule.h>
#include <hmi/shared/settings/Setting.h>
#include <hmi/shared/settings/SettingsManager.h>
#include <platform/shutdown/ServiceNotifier.h>
#include <platform/shutdown/ShutdownManager.h>
#include <platform/shutdown/ShutdownWatch.h>

namespace Hmi::Shared {

Application* Application::smInstance = nullptr;
QRecursiveMutex Application::smLifecycleLock;
bool Application::smInitialized = false;
bool Application::smShouldShutDown = false;
CallbackHandler Application::smPostInitCallbackHandler;

/** Applies what the command line says of logging; does not return for help and unknown options. */
static void processCommandLine()
{
    const QString name = QCoreApplication::applicationName();
    const QCommandLineOption quiet({QStringLiteral("q"), QStringLiteral("quiet")},
                                   QStringLiteral("Don't emit typical debug output"));
    const QCommandLineOption log({QStringLiteral("l"), QStringLiteral("log")},
                                 QStringLiteral("Writes logging output to file:") + name +
                                     QStringLiteral("<n>.log (-q option takes precedence)"));
    QCommandLineParser parser;
    parser.addOption(quiet);
    parser.addOption(log);
    parser.addHelpOption();
    parser.setApplicationDescription(name);
    parser.process(*QCoreApplication::instance());
    if (parser.isSet(quiet))
        qInstallMessageHandler(&LogMessageHandler::discardMessage);
    else if (parser.isSet(log))
        LogMessageHandler::instance()->startFileLogging();
}

Application::Application(int& argc, char** argv, const QString& aApplicationName,
                         const QString& aSecondaryName) :
    QGuiApplication(argc, argv),
    mName(aApplicationName),
    mSecondaryName(aSecondaryName.isEmpty() ? aApplicationName : aSecondaryName),
    mRegisteredModules(std::make_unique<RegisteredModules>())
{
    mEngine.setUrlInterceptor(mRegisteredModules.get());
    qRegisterMetaType<MemoryLevel>("MemoryLevel");
    smInstance = this;
    QT::ShutdownManager::installEarly();
    setApplicationName(QStringLiteral("hmi_") + mName);
    processCommandLine();
    mPageSetPolicy = new PageSetPolicyBase(this, mName);
    // The application's child, which the pointer only shows around.
    mPerfEventPolicy.reset(new PerfEventPolicyMetron(this), [](PerfEventPolicyMetron*) {});
    LoggingRules::load(QDir(getConfigDirectory()).filePath(QStringLiteral("hmi_logging.ini")));
}

Application::~Application()
{
    requestShutdown();
    smInstance = nullptr;
}

QString Application::getConfigDirectory() const
{
    const QString directory = QStringLiteral("../etc");
    return QDir::isAbsolutePath(directory) ? directory : applicationDirPath() + QDir::separator() + directory;
}

QString Application::getBoardFile() const
{
    return getConfigDirectory() + QDir::separator() + QStringLiteral("hmi_board.ini");
}

QString Application::getConfigFile() const
{
    return QDir(getConfigDirectory()).filePath(applicationName() + QStringLiteral(".ini"));
}

QSharedPointer<Core::PerfEventPolicyBase> Application::getPerfEventPolicy() const { return mPerfEventPolicy; }

void Application::raiseMarker(const QString& aMarkerName) const
{
    if (mPerfEventPolicy)
        mPerfEventPolicy->raiseEvent(QStringLiteral("hmi/%1/%2").arg(mName, aMarkerName));
}

bool Application::isShutdownRequested()
{
    smShouldShutDown = smShouldShutDown || QT::ShutdownManager::isRequested();
    return smShouldShutDown;
}

void Application::init()
{
    {
        const QMutexLocker lock(&smLifecycleLock);
        if (smInitialized)
            return;
        if (isShutdownRequested() || !startUpInStages()) {
            // exec() may not have begun yet.
            if (isShutdownRequested())
                QMetaObject::invokeMethod(this, &QCoreApplication::quit, Qt::QueuedConnection);
            else
                watchForSignals();
            return;
        }
        smInitialized = true;
    }
    postInit();
    QMetaObject::invokeMethod(&smPostInitCallbackHandler, &CallbackHandler::handleCallbacks,
                              Qt::QueuedConnection);
    if (smInitialized)
        watchForShutdown();
}

/** Runs a stage of start-up as a span of the trace. */
template <class Stage>
auto Application::runStage(const QString& aName, Stage aStage)
{
    struct Span
    {
        Span(PerfEventPolicyMetron& aPolicy, const QString& aStageName) :
            policy(aPolicy), name(QStringLiteral("Hmi/Shared/") + aStageName)
        {
            policy.raiseEvent(name + QStringLiteral("Start"));
        }
        ~Span() { policy.raiseEvent(name + QStringLiteral("End")); }

        PerfEventPolicyMetron& policy;
        const QString name;
    };
    const Span span(*mPerfEventPolicy, aName);
    return aStage();
}

/** False when a stage, or a shutdown behind one, ended it. */
bool Application::startUpInStages()
{
    runStage(QStringLiteral("initCore"), [this] { initCore(); });
    beginStartUpRecording();
    raiseMarker(QStringLiteral("HmiInitStart"));
    if (isShutdownRequested())
        return false;
    runStage(QStringLiteral("initLibrary"), [this] { initLibrary(); });
    if (isShutdownRequested() || !runStage(QStringLiteral("initModules"), [this] { return initModules(); }) ||
        isShutdownRequested())
        return false;
    runStage(QStringLiteral("initServices"), [this] { initServices(); });
    if (!mNonBlockingModules)
        qFatal("Application::initNonBlockingModules() must be called by derived classes");
    if (isShutdownRequested())
        return false;
    runStage(QStringLiteral("initViewerApp"), [this] { initViewerApp(); });
    runStage(QStringLiteral("completeSettings"), [this] { completeSettings(); });
    return !isShutdownRequested();
}

void Application::initCore()
{
    Core::initialize(mPerfEventPolicy, getConfigFile(), {});
    registerQmlModules();
}

void Application::initLibrary() { HmiSharedGlobal::instance()->startUp({}, mPerfEventPolicy.data()); }

bool Application::initModules() { return ModuleManager::instance()->initializeModules(); }

void Application::completeSettings()
{
    const SettingsManager* const settings = SettingsManager::instance();
    settings->getSetting(SettingsManager::FirstBootName)->setValue(false);
    settings->getSetting(SettingsManager::VersionPreviousName)
        ->setValue(settings->getSettingValue(SettingsManager::VersionName));
}

/** Once per process: init() may begin again. */
void Application::beginStartUpRecording()
{
    if (mRecording)
        return;
    const QString folder =
        Core::HmiCoreConfigs::instance()->getGnuLocalstatedir() + QStringLiteral("/metron");
    mRecording = std::make_unique<MeasurementRecording>(folder, mPerfEventPolicy->getEventRing());
    mRecording->prepare();
    mRecording->begin(QStringLiteral("ApplicationStartup"));
}

void Application::handleApplicationStartupComplete(bool aStopRecording)
{
    raiseMarker(QStringLiteral("initEnd"));
    if (aStopRecording && mRecording)
        mRecording->end();
}

/** Also while a task holds start-up back: nothing is there then to be shut down, and the event loop ends. */
void Application::watchForSignals()
{
    if (mShutdownManager)
        return;
    mShutdownManager = std::make_unique<QT::ShutdownManager>(this);
    const auto shutDown = [] {
        requestShutdown();
        quit();
    };
    // The ordered shutdown deletes the manager.
    connect(mShutdownManager.get(), &QT::ShutdownManager::shutdownRequested, this, shutDown,
            Qt::QueuedConnection);
    if (!mShutdownManager->initialize())
        qCCritical(hmiShared, "Application::init(): Error initializing shutdown manager. SIGTERM will not be "
                              "handled properly.");
}

void Application::watchForShutdown()
{
    watchForSignals();
    mServiceNotifier = std::make_unique<QT::ServiceNotifier>();
    mServiceNotifier->ready();
    connect(this, &QCoreApplication::aboutToQuit, this, &Application::requestShutdown, Qt::UniqueConnection);
}

void Application::requestShutdown()
{
    const QMutexLocker lock(&smLifecycleLock);
    if (smShouldShutDown)
        return;
    smShouldShutDown = true;
    if (!smInitialized)
        return;
    smInstance->shutDownInOrder();
    // exec() may not have begun yet.
    QMetaObject::invokeMethod(smInstance, &QCoreApplication::quit, Qt::QueuedConnection);
}

void Application::shutDownStep(QT::ShutdownWatch& aWatch, const QString& aName, void (Application::*aStage)())
{
    aWatch.beginStep(aName);
    raiseMarker(aName + QStringLiteral("Start"));
    (this->*aStage)();
    raiseMarker(aName + QStringLiteral("End"));
}

void Application::shutDownInOrder()
{
    QT::ShutdownWatch watch;
    if (mServiceNotifier)
        mServiceNotifier->stopping();
    mShutdownManager.reset();
    smInitialized = false;
    mRecording->begin(QStringLiteral("ApplicationShutdown"));
    raiseMarker(QStringLiteral("HmiShutdownStart"));
    shutDownStep(watch, QStringLiteral("clearViewerApp"), &Application::clearViewerApp);
    shutDownStep(watch, QStringLiteral("deInitModules"), &Application::deInitModules);
    shutDownStep(watch, QStringLiteral("deInitViewerApp"), &Application::deInitViewerApp);
    shutDownStep(watch, QStringLiteral("deleteInstancesCpp"), &Application::deleteInstances);
    shutDownStep(watch, QStringLiteral("deInitModulesLate"), &Application::deInitModulesLate);
    watch.beginStep(QStringLiteral("deInitNonBlockingModules"));
    deInitServices();
    if (mNonBlockingModules)
        qFatal("Application::deInitNonBlockingModules() must be called by derived classes");
    raiseMarker(QStringLiteral("HmiShutdownEnd"));
    mRecording->end();
}

void Application::deInitModules() { ModuleManager::instance()->deInitializeModules(); }

/** The store is closed before the singletons go. */
void Application::deleteInstances()
{
    HmiSharedGlobal::instance()->shutDown(mPerfEventPolicy.data());
    Core::InstanceTracker::deleteInstancesCpp();
}

/** Makes the manager afresh, as the list of modules outlives it. */
void Application::deInitModulesLate() { ModuleManager::instance()->deInitializeModulesLate(); }

void Application::handleTrimMemoryQtThread(MemoryLevel aMemoryLevel)
{
    QPixmapCache::clear();
    mEngine.collectGarbage();
    if (aMemoryLevel == MemoryLevelForegroundCritical || aMemoryLevel >= MemoryLevelBackgroundMajor)
        mEngine.trimComponentCache();
}

void Application::setInstallationTask(std::unique_ptr<TaskStatusReceiver> aTask)
{
    watchTask(mInstallationTask, std::move(aTask), &Application::handleTaskChangedInstallation);
}

void Application::setPermissionsTask(std::unique_ptr<TaskStatusReceiver> aTask)
{
    watchTask(mPermissionsTask, std::move(aTask), &Application::handleTaskChangedPermissions);
}

void Application::watchTask(std::unique_ptr<TaskStatusReceiver>& aWatched,
                            std::unique_ptr<TaskStatusReceiver> aTask, void (Application::*aSlot)())
{
    if (aTask->getTaskStatus() != TaskStatusReceiver::TaskPending)
        return;
    aWatched = std::move(aTask);
    connect(aWatched.get(), &TaskStatusReceiver::taskStatusChanged, this, aSlot);
}

void Application::handleTaskChangedInstallation()
{
    takeTaskResult(mInstallationTask, "ERROR: Installation failed to complete. Quitting application.");
}

void Application::handleTaskChangedPermissions()
{
    takeTaskResult(mPermissionsTask, "ERROR: Permissions request failed to complete. Quitting application.");
}

/** The receiver may be the one whose slot this is. */
void Application::takeTaskResult(std::unique_ptr<TaskStatusReceiver>& aTask, const char* aFailure)
{
    if (!aTask || aTask->getTaskStatus() == TaskStatusReceiver::TaskPending)
        return;
    const bool succeeded = aTask->getTaskStatus() == TaskStatusReceiver::TaskSucceeded;
    aTask.release()->deleteLater();
    finishTask();
    if (succeeded) {
        init();
    } else {
        qCCritical(hmiShared, "%s", aFailure);
        QCoreApplication::quit();
    }
}

} // namespace Hmi::Shared
