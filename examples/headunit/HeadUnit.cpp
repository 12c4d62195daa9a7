#include "HeadUnit.h"

#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QVector>
#include <qqml.h>

#include "HeadUnitConfigs.h"
#include "InstallationTask.h"
#include "ScreenshotTour.h"
#include <hmi/core/foundation/ConfigManager.h>
#include <hmi/core/resources/ResourceManager.h>
#include <hmi/core/view/RestrictedModeManager.h>
#include <hmi/shared/application/modules/ActionManager.h>
#include <hmi/shared/application/modules/AppManager.h>
#include <hmi/shared/application/modules/HmiSharedGlobal.h>
#include <hmi/shared/application/modules/ModuleManager.h>
#include <hmi/shared/services/SystemUpdateManager.h>
#include <hmi/shared/settings/DataManagerWrapper.h>
#include <hmi/shared/vehicle/VolumePolicyBase.h>

using namespace Hmi::Shared;

static QString screenUrl(const QString& aScreen)
{
    return QStringLiteral("qrc:/headunit/qml/%1.qml").arg(aScreen);
}

static void declareScreens()
{
    // The titles are translated where they are shown.
    const auto app = [](const char* aName, const char* aTitle) {
        const QString title = QLatin1String(aTitle);
        return AppManager::App{QLatin1String(aName), title, screenUrl(title + QStringLiteral("Screen"))};
    };
    AppManager::declareApps({app("drive", QT_TRANSLATE_NOOP("Apps", "Drive")),
                             app("settings", QT_TRANSLATE_NOOP("Apps", "Settings")),
                             app("update", QT_TRANSLATE_NOOP("Apps", "Update")),
                             app("notifications", QT_TRANSLATE_NOOP("Apps", "Notifications")),
                             app("system", QT_TRANSLATE_NOOP("Apps", "System"))});
}

/** What nobody does while driving. */
static void declareActions()
{
    for (const QString& action : {QStringLiteral("addProfile"), QStringLiteral("resetProfile")}) {
        ActionManager::instance()->addAction(action);
        Hmi::Core::RestrictedModeManager::instance()->restrictAction(action);
    }
}

static void activateProfile(const QString& aName)
{
    using Result = std::unique_ptr<DataManagerReturnTypeQml>;
    if (aName.isEmpty())
        return;
    DataManagerWrapper* const manager = DataManagerWrapper::instance();
    Result result(manager->makeActiveUserProfile(aName));
    if (result->getError() == DataManagerReturnTypeQml::DM_ID_NOT_FOUND) {
        result.reset(manager->addNewUserProfile(aName));
        result.reset(manager->makeActiveUserProfile(aName));
    }
    if (result->getError() != DataManagerReturnTypeQml::DM_OK)
        qWarning("The user profile '%s' of HEADUNIT_PROFILE cannot be used; the last one stays.",
                 qUtf8Printable(aName));
}

HeadUnit::HeadUnit(int& aArgumentCount, char** aArguments) :
    Application(aArgumentCount, aArguments, QStringLiteral("headunit"))
{
    declareScreens();
    ModuleManager::instance()->registerListener(&mVehicle);
    ModuleManager::instance()->registerListener(&mAppearance);
}

HeadUnit::~HeadUnit() { requestShutdown(); }

QString HeadUnit::getConfigFile() const
{
    const QStringList words = arguments().mid(1);
    for (const QString& word : words)
        if (!word.startsWith(QLatin1Char('-')))
            return word;
    return applicationDirPath() + QStringLiteral("/headunit.ini");
}

/** The store is opened on another thread while the rest of the core comes up. */
void HeadUnit::initCore()
{
    Application::initCore();
    // The first to answer: these defaults stand before the library's.
    Hmi::Core::ResourceManager::instance()->addBuiltInTable(
        QStringLiteral(":/headunit/defaults/resources.xml"));
    HmiSharedGlobal* const global = HmiSharedGlobal::instance();
    global->getEnvironmentManager()->completeStartup();
    global->startUpAsync();
}

bool HeadUnit::initModules()
{
    if (!mInstallationLookedFor)
        holdBackForInstallation();
    if (isWaitingForTask())
        return false;
    activateProfile(qEnvironmentVariable("HEADUNIT_PROFILE"));
    return Application::initModules();
}

void HeadUnit::holdBackForInstallation()
{
    mInstallationLookedFor = true;
    const QString file = HeadUnitConfigs(*Hmi::Core::ConfigManager::instance()).getInstallationFile();
    if (file.isEmpty())
        return;
    auto task = std::make_unique<InstallationTask>(file);
    QObject* const shown = task.get();
    setInstallationTask(std::move(task));
    if (isWaitingForTask())
        mWindow = show(QStringLiteral("InstallationScreen"),
                       {{QStringLiteral("task"), QVariant::fromValue(shown)}});
}

void HeadUnit::finishTask() { mWindow.reset(); }

void HeadUnit::initServices()
{
    initNonBlockingModules();
    mAppearance.setVehicle(mVehicle.getPolicy());
    mGuidanceVolume = std::make_unique<VolumePolicyBase>();
    declareActions();
    const char* const uri = "headunit";
    qmlRegisterSingletonInstance(uri, 1, 0, "Vehicle", mVehicle.getPolicy());
    qmlRegisterSingletonInstance(uri, 1, 0, "GuidanceVolume", mGuidanceVolume.get());
    qmlRegisterUncreatableType<Appearance>(uri, 1, 0, "Appearance",
                                           QStringLiteral("Can't create Appearance in QML"));
}

void HeadUnit::initViewerApp()
{
    mWindow = show(QStringLiteral("Main"));
    connect(static_cast<QQuickWindow*>(mWindow.get()), &QQuickWindow::frameSwapped, this,
            &HeadUnit::onFirstFrame, Qt::QueuedConnection);
}

std::unique_ptr<QObject> HeadUnit::show(const QString& aScreen, const QVariantMap& aProperties)
{
    QQmlComponent component(getQmlEngine(), QUrl(screenUrl(aScreen)));
    std::unique_ptr<QObject> window(component.createWithInitialProperties(aProperties));
    if (!window)
        qFatal("The screen cannot be shown: %s", qUtf8Printable(component.errorString()));
    return window;
}

void HeadUnit::onFirstFrame()
{
    auto* const window = static_cast<QQuickWindow*>(mWindow.get());
    disconnect(window, &QQuickWindow::frameSwapped, this, &HeadUnit::onFirstFrame);
    raiseMarker(QStringLiteral("firstFrame"));
    handleApplicationStartupComplete(true);
}

/** What the service offered before this process or a connection to it was there. */
static void lookForUpdates()
{
    SystemUpdateManager* const updates = SystemUpdateManager::instance();
    if (updates->getServiceAvailable() &&
        updates->getState() == SystemUpdateManager::UpdateStateNoneAvailable)
        updates->checkForUpdates();
}

void HeadUnit::postInit()
{
    connect(SystemUpdateManager::instance(), &SystemUpdateManager::serviceAvailableChanged, this,
            &lookForUpdates);
    lookForUpdates();
    const QString screenshots = qEnvironmentVariable("HEADUNIT_SCREENSHOTS");
    if (!screenshots.isEmpty())
        mTour = std::make_unique<ScreenshotTour>(screenshots, *mWindow, *mVehicle.getPolicy());
}

void HeadUnit::clearViewerApp()
{
    mTour.reset();
    mWindow.reset();
}

void HeadUnit::deInitServices()
{
    mGuidanceVolume.reset();
    deInitNonBlockingModules();
}
