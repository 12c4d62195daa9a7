#pragma once

#include <QGuiApplication>
#include <QMutex>
#include <QQmlEngine>
#include <QSharedPointer>
#include <QString>
#include <memory>

#include <hmi/shared/events/CallbackHandler.h>
#include <hmi/shared/services/TaskStatusReceiver.h>

namespace QT {
class ServiceNotifier;
class ShutdownManager;
class ShutdownWatch;
} // namespace QT

namespace Hmi::Core {
class PerfEventPolicyBase;
}

namespace Hmi::Shared {

class MeasurementRecording;
class PageSetPolicyBase;
class PerfEventPolicyMetron;
class RegisteredModules;

/**
 * Base class of every HMI process: owns the QML engine, parses the command line, sets logging up, starts in
 * stages and shuts down in order, on SIGTERM as well. A product fills in the stages that it needs; those that
 * have a body here are called by the override:
 *
 *     class HeadUnit : public Hmi::Shared::Application
 *     {
 *     public:
 *         HeadUnit(int& argc, char** argv) : Application(argc, argv, QStringLiteral("headunit")) {}
 *
 *     protected:
 *         bool initModules() override
 *         {
 *             ModuleManager::instance()->registerListener(&mRadio);
 *             return Application::initModules();
 *         }
 *         void initServices() override { initNonBlockingModules(); }
 *         void initViewerApp() override { mRoot = load(QStringLiteral("qrc:/Main.qml")); }
 *         void clearViewerApp() override { mRoot.reset(); }
 *         void deInitServices() override { deInitNonBlockingModules(); }
 *     };
 *
 *     int main(int argc, char** argv)
 *     {
 *         HeadUnit headUnit(argc, argv);
 *         headUnit.init();
 *         return headUnit.exec();
 *     }
 *
 * Whatever ends the event loop begins the shutdown. A product that may go without exec() calls
 * requestShutdown() in its destructor, where its stages still are.
 *
 * Markers of performance are named "hmi/<name>/<marker>"; the stages of start-up are the spans
 * "Hmi/Shared/<stage>". Main thread only, but for requestShutdown() when
 * nothing is initialised yet.
 */
class Q_DECL_EXPORT Application : public QGuiApplication
{
    Q_OBJECT

public:
    /** How short memory is, for an application that is seen and for one that is not. */
    enum MemoryLevel {
        MemoryLevelForegroundMinor,
        MemoryLevelForegroundMajor,
        MemoryLevelForegroundCritical,
        MemoryLevelBackground,
        MemoryLevelBackgroundMinor,
        MemoryLevelBackgroundMajor,
        MemoryLevelBackgroundCritical
    };
    Q_ENUM(MemoryLevel)

    /**
     * Parses the command line (-q, --quiet: no messages; -l, --log: into files, see LogMessageHandler;
     * --help) and loads the logging rules. Qt's application name becomes "hmi_" and the name.
     */
    Application(int& argc, char** argv, const QString& aApplicationName,
                const QString& aSecondaryName = QString());
    /** Shuts down in order, if that was not done. */
    ~Application() override;

    /** The one application; null before there is one. */
    static Application* instance() { return smInstance; }

    /**
     * Starts in stages. Does nothing once that was done or a shutdown was requested; ends early, to be called
     * again, when initModules() says so; a signal to end then ends the event loop. A shutdown that is
     * requested meanwhile ends it behind the stage that is under way, and the event loop, too.
     */
    void init();

    /**
     * Shuts down in order and then ends the event loop. Before init() is over it only prevents that from
     * going on. Later calls do nothing.
     */
    static void requestShutdown();

    static bool isInitialized() { return smInitialized; }

    QString getName() const { return mName; }
    /** A second name of the product; the first, if it has none. */
    QString getSecondaryName() const { return mSecondaryName; }
    /** Absolute. */
    QString getConfigDirectory() const;
    QString getBoardFile() const;
    PageSetPolicyBase* getPageSetPolicy() const { return mPageSetPolicy; }
    QSharedPointer<Core::PerfEventPolicyBase> getPerfEventPolicy() const;
    QQmlEngine* getQmlEngine() { return &mEngine; }

    void raiseMarker(const QString& aMarkerName) const;

    /** What is added here runs from the event loop, once init() is over. */
    static CallbackHandler smPostInitCallbackHandler;

public slots:
    /** The last marker of start-up, "initEnd"; ends its recording if it is to end here. */
    void handleApplicationStartupComplete(bool aStopRecording);
    /** Frees what can be made again: the engine's caches, and at the critical levels its unused memory. */
    void handleTrimMemoryQtThread(Hmi::Shared::Application::MemoryLevel aMemoryLevel);
    // The watched tasks of setInstallationTask() and setPermissionsTask() moved on.
    void handleTaskChangedInstallation();
    void handleTaskChangedPermissions();

protected:
    // Start-up, in this order. An early end of init() begins again with the first.
    /** Brings up the core with its configuration, and the QML types. */
    virtual void initCore();
    /** Starts the library: data manager, settings, software update. */
    virtual void initLibrary();
    /** The modules, see LifecycleListener. False ends init(): a module failed, or a task holds start-up back.
     */
    virtual bool initModules();
    /** What nobody waits for; calls initNonBlockingModules(), here at the latest. */
    virtual void initServices() {}
    /** The screens. */
    virtual void initViewerApp() {}
    /** After initialisation, outside the lock: from here on a shutdown is an ordered one. */
    virtual void postInit() {}

    /** A task that held start-up back ended, well or not. */
    virtual void finishTask() {}

    // Shutdown, in this order.
    /** Takes the screens away. */
    virtual void clearViewerApp() {}
    virtual void deInitModules();
    virtual void deInitViewerApp() {}
    /** The singletons are gone. */
    virtual void deInitModulesLate();
    /** Calls deInitNonBlockingModules(), here at the latest. */
    virtual void deInitServices() {}

    /** Where initCore() reads the configuration: "<Qt's application name>.ini" in the configuration
     * directory. */
    virtual QString getConfigFile() const;

    void initNonBlockingModules() { mNonBlockingModules = true; }
    void deInitNonBlockingModules() { mNonBlockingModules = false; }

    /**
     * Tasks that may hold start-up back: when one succeeds init() is called again, when it fails the
     * application quits. Whether one is still under way is for initModules() to say, with isWaitingForTask().
     * One that has ended already holds nothing back.
     */
    void setInstallationTask(std::unique_ptr<TaskStatusReceiver> aTask);
    void setPermissionsTask(std::unique_ptr<TaskStatusReceiver> aTask);
    bool isWaitingForTask() const { return mInstallationTask || mPermissionsTask; }

private:
    template <class Stage>
    auto runStage(const QString& aName, Stage aStage);
    bool startUpInStages();
    void beginStartUpRecording();
    void completeSettings();
    void watchForSignals();
    void watchForShutdown();
    void shutDownInOrder();
    void deleteInstances();
    void shutDownStep(QT::ShutdownWatch& aWatch, const QString& aName, void (Application::*aStage)());
    void watchTask(std::unique_ptr<TaskStatusReceiver>& aWatched, std::unique_ptr<TaskStatusReceiver> aTask,
                   void (Application::*aSlot)());
    void takeTaskResult(std::unique_ptr<TaskStatusReceiver>& aTask, const char* aFailure);
    static bool isShutdownRequested();

    static Application* smInstance;
    static QRecursiveMutex smLifecycleLock;
    static bool smInitialized;
    static bool smShouldShutDown;

    const QString mName;
    const QString mSecondaryName;
    PageSetPolicyBase* mPageSetPolicy = nullptr;
    QSharedPointer<PerfEventPolicyMetron> mPerfEventPolicy;
    bool mNonBlockingModules = false;
    const std::unique_ptr<RegisteredModules> mRegisteredModules;
    QQmlEngine mEngine;
    std::unique_ptr<QT::ShutdownManager> mShutdownManager;
    std::unique_ptr<QT::ServiceNotifier> mServiceNotifier;
    std::unique_ptr<MeasurementRecording> mRecording;
    std::unique_ptr<TaskStatusReceiver> mInstallationTask;
    std::unique_ptr<TaskStatusReceiver> mPermissionsTask;
};

} // namespace Hmi::Shared
