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
#include <hmi/shared/services/EnvironmentManager.h>
#include <hmi/shared/services/ErrorReportInfo.h>
#include <hmi/shared/services/ErrorReportModel.h>
#include <hmi/shared/services/EulaReader.h>
#include <hmi/shared/services/NotificationListModel.h>
#include <hmi/shared/services/NotificationManagerWrapperQml.h>
#include <hmi/shared/services/NotificationModel.h>
#include <hmi/shared/services/ProductInfo.h>
#include <hmi/shared/services/SystemInformationManager.h>
#include <hmi/shared/services/SystemInformationNetwork.h>
#include <hmi/shared/services/SystemInformationSubmodule.h>
#include <hmi/shared/services/SystemUpdateManager.h>
#include <hmi/shared/services/TaskStatusReceiverInstallation.h>
#include <hmi/shared/services/TaskStatusReceiverPermissions.h>
#include <hmi/shared/settings/DataManagerReturnTypeQml.h>
#include <hmi/shared/settings/DataManagerWrapper.h>
#include <hmi/shared/settings/Setting.h>
#include <hmi/shared/settings/SettingLocale.h>
#include <hmi/shared/settings/SettingsManager.h>
#include <hmi/shared/signal-service/qml/RxSignalProxy.h>
#include <hmi/shared/signal-service/qml/TxSignalProxy.h>
#include <hmi/shared/units/DateTime.h>
#include <hmi/shared/units/Distance.h>
#include <hmi/shared/units/MeasurementBase.h>
#include <hmi/shared/units/MeasurementUnits.h>
#include <hmi/shared/units/NumberPrecision.h>
#include <hmi/shared/units/PhoneNumberUtility.h>
#include <hmi/shared/units/Speed.h>
#include <hmi/shared/units/TimeDuration.h>
#include <hmi/shared/vehicle/VehicleInformationPolicy.h>
#include <hmi/shared/vehicle/VolumePolicyBase.h>

static void initializeResourceCollection() { Q_INIT_RESOURCE(hmi_shared); }

static void cleanUpResourceCollection() { Q_CLEANUP_RESOURCE(hmi_shared); }

namespace Hmi::Shared {

using Core::registerQmlFileSingleton;
using Core::registerQmlSingleton;
using Core::registerQmlType;
using Core::registerQmlUncreatableType;

void registerResources() { initializeResourceCollection(); }

void unregisterResources() { cleanUpResourceCollection(); }

void registerSharedModule(bool aDataManagerEnabled, bool aSystemUpdateEnabled)
{
    const char* uri = "hmi.shared";
    registerQmlSingleton<ActionManager>(uri, "ActionManager");
    registerQmlSingleton<AppManager>(uri, "AppManager");
    registerQmlFileSingleton(QUrl(QStringLiteral("qrc:///hmi/shared/BackManager.qml")), uri, "BackManager");
    if (aDataManagerEnabled)
        registerQmlSingleton<DataManagerWrapper>(uri, "DataManager");
    registerQmlSingleton<HardwareButtonManager>(uri, "HardwareButtonManager");
    registerQmlSingleton<HmiSharedGlobal>(uri, "HmiShared");
    registerQmlSingleton<MeasurementUnits>(uri, "MeasurementUnits");
    registerQmlSingleton<ModuleManager>(uri, "ModuleManager");
    registerQmlSingleton<PagePrintManager>(uri, "PagePrintManager");
    registerQmlSingleton<PhoneNumberUtility>(uri, "PhoneNumberUtility");
    registerQmlSingleton<SettingsManager>(uri, "SettingsManager");
    registerQmlSingleton<SystemInformationManager>(uri, "SystemInformationManager");
    if (aSystemUpdateEnabled)
        registerQmlSingleton<SystemUpdateManager>(uri, "SystemUpdateManager");

    registerQmlType<DateTime>(uri, "DateTime");
    registerQmlType<Distance>(uri, "Distance");
    registerQmlType<ErrorReportModel>(uri, "ErrorReportModel");
    registerQmlType<EulaReader>(uri, "EulaReader");
    registerQmlType<MeasurementBase>(uri, "MeasurementBase");
    registerQmlType<NotificationListModel>(uri, "NotificationListModel");
    registerQmlType<NotificationManagerWrapperQml>(uri, "NotificationManagerWrapper");
    registerQmlType<NumberPrecision>(uri, "NumberPrecision");
    registerQmlType<ProductInfo>(uri, "ProductInfo");
    registerQmlType<SignalService::RxSignalProxy>(uri, "RxSignalProxy");
    registerQmlType<Speed>(uri, "Speed");
    registerQmlType<TaskStatusReceiver>(uri, "TaskStatusReceiver");
    registerQmlType<TaskStatusReceiverInstallation>(uri, "TaskStatusReceiverInstallation");
    registerQmlType<TaskStatusReceiverPermissions>(uri, "TaskStatusReceiverPermissions");
    registerQmlType<TimeDuration>(uri, "TimeDuration");
    registerQmlType<SignalService::TxSignalProxy>(uri, "TxSignalProxy");
    registerQmlType<VehicleInformationPolicy>(uri, "VehicleInformationPolicy");
    registerQmlType<VolumePolicyBase>(uri, "VolumePolicyBase");

    registerQmlUncreatableType<DataManagerReturnTypeQml>(uri, "DataManagerReturnTypeQml");
    registerQmlUncreatableType<EnvironmentManager>(uri, "EnvironmentManager");
    registerQmlUncreatableType<ErrorReportInfo>(uri, "ErrorReportInfo");
    registerQmlUncreatableType<HmiSharedConfigs>(uri, "HmiSharedConfigs");
    registerQmlUncreatableType<NotificationFramework::NotificationModel>(uri, "NotificationModel");
    registerQmlUncreatableType<Setting>(uri, "Setting");
    registerQmlUncreatableType<SettingLocale>(uri, "SettingLocale");
    registerQmlUncreatableType<SystemInformationNetwork>(uri, "SystemInformationNetwork");
    registerQmlUncreatableType<SystemInformationSubmodule>(uri, "SystemInformationSubmodule");
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
    const HmiSharedConfigs& configs = *HmiSharedConfigs::instance();
    registerSharedModule(configs.getDataManagerEnabled(), configs.getSystemUpdateEnabled());
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

void startPluginHost()
{
    HmiSharedGlobal* const global = HmiSharedGlobal::instance();
    global->getEnvironmentManager()->completeStartup();
    global->startUp();
}

} // namespace Hmi::Shared
