#include <hmi/shared/qml/SharedQmlModule.h>

#include <QUrl>
#include <qqml.h>

#include <hmi/core/foundation/QmlRegistration.h>
#include <hmi/shared/application/HmiSharedConfigs.h>
#include <hmi/shared/application/modules/ActionManager.h>
#include <hmi/shared/application/modules/AppManager.h>
#include <hmi/shared/application/modules/HardwareButtonManager.h>
#include <hmi/shared/application/modules/HmiAsr.h>
#include <hmi/shared/application/modules/HmiNavigation.h>
#include <hmi/shared/application/modules/HmiSharedGlobal.h>
#include <hmi/shared/application/modules/HmiVehicle.h>
#include <hmi/shared/application/modules/ModuleManager.h>
#include <hmi/shared/application/modules/PagePrintManager.h>

static void initializeResourceCollection() { Q_INIT_RESOURCE(hmi_shared); }

static void cleanUpResourceCollection() { Q_CLEANUP_RESOURCE(hmi_shared); }

namespace Hmi::Shared {

using Core::registerQmlFileSingleton;
using Core::registerQmlSingleton;
using Core::registerQmlUncreatableType;

void registerResources() { initializeResourceCollection(); }

void unregisterResources() { cleanUpResourceCollection(); }

void registerSharedModule()
{
    const char* uri = "hmi.shared";
    registerQmlSingleton<ActionManager>(uri, "ActionManager");
    registerQmlSingleton<AppManager>(uri, "AppManager");
    registerQmlFileSingleton(QUrl(QStringLiteral("qrc:///hmi/shared/BackManager.qml")), uri, "BackManager");
    registerQmlSingleton<HardwareButtonManager>(uri, "HardwareButtonManager");
    registerQmlSingleton<HmiSharedGlobal>(uri, "HmiShared");
    registerQmlSingleton<ModuleManager>(uri, "ModuleManager");
    registerQmlSingleton<PagePrintManager>(uri, "PagePrintManager");

    registerQmlUncreatableType<HmiSharedConfigs>(uri, "HmiSharedConfigs");
}

void registerAsrModule() { registerQmlSingleton<HmiAsr>("hmi.asr", "HmiAsr"); }

void registerNavigationModule() { registerQmlSingleton<HmiNavigation>("hmi.navigation", "HmiNavigation"); }

void registerGuidanceModule()
{
    qmlRegisterModule("hmi.navigation.guidance", Core::QmlMajorVersion, Core::QmlMinorVersion);
}

void registerVehicleModule() { registerQmlSingleton<HmiVehicle>("hmi.vehicle", "HmiVehicle"); }

static bool registerAllModules()
{
    registerSharedModule();
    registerAsrModule();
    registerNavigationModule();
    registerGuidanceModule();
    registerVehicleModule();
    return true;
}

void registerQmlModules()
{
    static const bool registered = registerAllModules();
    Q_UNUSED(registered)
}

} // namespace Hmi::Shared
