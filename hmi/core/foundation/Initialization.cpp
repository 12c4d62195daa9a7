#include <hmi/core/foundation/Initialization.h>

#include <QCoreApplication>
#include <QFileInfo>
#include <QFont>
#include <QGuiApplication>
#include <QQuickWindow>
#include <QSettings>
#include <QStyleHints>

#include <hmi/core/foundation/ConfigManager.h>
#include <hmi/core/foundation/HmiCoreConfigs.h>
#include <hmi/core/foundation/PerfEventPolicyBase.h>
#include <hmi/core/qml/CoreQmlModule.h>
#include <hmi/core/resources/ResourceManager.h>

static void initializeResourceCollection() { Q_INIT_RESOURCE(hmi_core); }

static void cleanUpResourceCollection() { Q_CLEANUP_RESOURCE(hmi_core); }

namespace Hmi::Core {

static constexpr char sConfigVariable[] = "HMI_CONFIG";

static bool sConfigurationLoaded = false;
static bool sInitialized = false;

static void raiseEvent(PerfEventPolicyBase* aPolicy, const QString& aMarker)
{
    if (aPolicy)
        aPolicy->raiseEvent(QStringLiteral("Hmi/Core/") + aMarker);
}

static QString defaultConfigPath() { return QCoreApplication::applicationName() + QStringLiteral(".ini"); }

static void loadConfiguration(PerfEventPolicyBase* aPolicy, const QString& aPath,
                              const QHash<QString, QString>& aOverrides)
{
    if (sConfigurationLoaded)
        return;
    raiseEvent(aPolicy, QStringLiteral("loadConfigStart"));
    const QString path = aPath.isEmpty() ? defaultConfigPath() : aPath;
    if (!aOverrides.isEmpty())
        ConfigManager::instance()->setPlaceholders(aOverrides);
    ConfigManager::instance()->load(path);
    sConfigurationLoaded = true;
    raiseEvent(aPolicy, QStringLiteral("loadConfigEnd"));
}

static void configure(PerfEventPolicyBase* aPolicy)
{
    raiseEvent(aPolicy, QStringLiteral("configureStart"));
    const HmiCoreConfigs* configs = HmiCoreConfigs::instance();
    if (configs->getAlphaChannelEnabled())
        QQuickWindow::setDefaultAlphaBuffer(true);
    if (qobject_cast<QGuiApplication*>(QCoreApplication::instance())) {
        QStyleHints* hints = QGuiApplication::styleHints();
        hints->setStartDragDistance(configs->getTouchDragStartDistance());
        hints->setMousePressAndHoldInterval(configs->getIntervalPressAndHold());
    }
    QGuiApplication::setFont(QFont(configs->getFontFamilyDefault(), -1, -1));
    raiseEvent(aPolicy, QStringLiteral("configureEnd"));
}

static void loadResources(PerfEventPolicyBase* aPolicy)
{
    raiseEvent(aPolicy, QStringLiteral("loadResourcesStart"));
    raiseEvent(aPolicy, QStringLiteral("loadThemesStart"));
    ResourceManager::instance()->loadResources(HmiCoreConfigs::instance()->getThemesPath());
    raiseEvent(aPolicy, QStringLiteral("loadResourcesEnd"));
}

static void bringUp(PerfEventPolicyBase* aPolicy, const QString& aPath,
                    const QHash<QString, QString>& aOverrides)
{
    loadConfiguration(aPolicy, aPath, aOverrides);
    configure(aPolicy);
    loadResources(aPolicy);
    sInitialized = true;
}

void registerResources() { initializeResourceCollection(); }

void unregisterResources() { cleanUpResourceCollection(); }

void initialize(const QSharedPointer<PerfEventPolicyBase>& aPerfEventPolicy, const QString& aConfigPath,
                const QHash<QString, QString>& aOverrides)
{
    registerQmlModule();
    bringUp(aPerfEventPolicy.data(), aConfigPath, aOverrides);
}

void initializePluginHost()
{
    if (!sInitialized)
        bringUp(nullptr, qEnvironmentVariable(sConfigVariable), {});
}

bool readPluginHostSwitch(const QString& aKey)
{
    const QString named = qEnvironmentVariable(sConfigVariable);
    const QFileInfo file(named.isEmpty() ? defaultConfigPath() : named);
    return file.isFile() && file.size() <= ConfigManager::MaximumFileSize &&
           QSettings(file.filePath(), QSettings::IniFormat).value(aKey).toBool();
}

} // namespace Hmi::Core
