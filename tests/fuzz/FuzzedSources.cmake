# What is fuzzed, with what that needs, and no more: the libraries as they are delivered would take minutes to build.
set(sources
    hmi/core/foundation/ConfigFacade.cpp
    hmi/core/foundation/ConfigManager.cpp
    hmi/core/foundation/HmiCoreConfigs.cpp
    hmi/core/foundation/InstanceTracker.cpp
    hmi/core/input/BoundedFile.cpp
    hmi/core/language/LanguageManager.cpp
    hmi/core/language/TranslationFile.cpp
    hmi/core/language/Translations.cpp
    hmi/core/models/ObjectListModelBase.cpp
    hmi/core/resources/HandleDefaultsResource.cpp
    hmi/core/resources/ResourceBundle.cpp
    hmi/core/resources/ResourceBundleCheck.cpp
    hmi/core/resources/ResourceManager.cpp
    hmi/core/resources/ResourceTable.cpp
    hmi/core/resources/XmlLoader.cpp
    hmi/shared/application/HmiSharedConfigs.cpp
    hmi/shared/application/LoggingCategory.cpp
    hmi/shared/application/LoggingRules.cpp
    hmi/shared/application/modules/HmiSharedGlobal.cpp
    hmi/shared/application/modules/PagePrintManager.cpp
    hmi/shared/events/EventLoop.cpp
    hmi/shared/events/EventLoopWaitable.cpp
    hmi/shared/services/EnvironmentManager.cpp
    hmi/shared/services/ErrorReport.cpp
    hmi/shared/services/NotificationListModel.cpp
    hmi/shared/services/NotificationManagerWrapper.cpp
    hmi/shared/services/NotificationManagerWrapperQml.cpp
    hmi/shared/services/NotificationModel.cpp
    hmi/shared/services/SystemUpdateManager.cpp
    hmi/shared/settings/DataManagerReturnTypeQml.cpp
    hmi/shared/settings/DataManagerWrapper.cpp
    hmi/shared/settings/Setting.cpp
    hmi/shared/settings/SettingLocale.cpp
    hmi/shared/settings/SettingsFile.cpp
    hmi/shared/settings/SettingsManager.cpp
    hmi/shared/settings/SharedSettings.cpp
    hmi/shared/signal-service/DataBuffer.cpp
    hmi/shared/signal-service/FrameReader.cpp
    hmi/shared/signal-service/ResponseDispatcher.cpp
    hmi/shared/signal-service/RxSignalProxy.cpp
    hmi/shared/signal-service/TransportProxy.cpp
    hmi/shared/signal-service/TxSignalProxy.cpp
    hmi/shared/units/DateTimeFormat.cpp
    hmi/shared/units/MeasurementUnits.cpp
    hmi/shared/units/PhoneNumberUtility.cpp
    simulator/Console.cpp
    simulator/signal-service/ResponseFrames.cpp
    simulator/signal-service/Scenario.cpp
    simulator/signal-service/ScenarioReader.cpp
    simulator/signal-service/SignalValue.cpp)
list(TRANSFORM sources PREPEND ${PROJECT_SOURCE_DIR}/)

add_library(hmi_fuzzed_code STATIC ${sources})
target_link_libraries(hmi_fuzzed_code
    PUBLIC Hmi::Platform Qt5::DBus Qt5::Network Qt5::Quick
    PRIVATE hmi_signal_messages hmi_settings)
target_compile_options(hmi_signal_messages PRIVATE -fsanitize=${HMI_SANITIZER} -fno-sanitize=vptr)
