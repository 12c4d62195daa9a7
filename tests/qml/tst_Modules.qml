import QtQuick 2.15
import QtTest 1.15
import hmi.asr 1.0
import hmi.navigation 1.0
import hmi.navigation.guidance 1.0
import hmi.shared 1.0
import hmi.vehicle 1.0
import Hmi.Core 1.0

TestCase {
    name: "Modules"

    readonly property var singletons: ({
        "Hmi.Core": "HighlightManager HmiCore KeyboardModelManager LanguageManager ProcessLauncher "
                    + "RestrictedModeManager SuggestionsManager StringRegistrationManager ThemeManager ObjectFactory",
        "hmi.shared": "ActionManager AppManager BackManager DataManager HardwareButtonManager HmiShared MeasurementUnits "
                      + "ModuleManager PagePrintManager PhoneNumberUtility SettingsManager SystemInformationManager "
                      + "SystemUpdateManager",
        "hmi.asr": "HmiAsr",
        "hmi.navigation": "HmiNavigation",
        "hmi.vehicle": "HmiVehicle"
    })

    function test_everySingletonIsThere() {
        for (const module in singletons)
            for (const name of singletons[module].split(" ")) {
                const holder = Qt.createQmlObject(
                    `import QtQml 2.15; import ${module} 1.0; QtObject { property var object: ${name} }`, this);
                compare(holder.object.objectName, "", name);
                holder.destroy();
            }
    }

    function test_recordsAndFacadesCannotBeCreated() {
        for (const [module, name] of [["Hmi.Core", "HmiCoreConfigs"], ["Hmi.Core", "RestrictedModePolicy"],
                                      ["Hmi.Core", "ObjectListModelBase"], ["hmi.shared", "ErrorReportInfo"],
                                      ["hmi.shared", "HmiSharedConfigs"], ["hmi.shared", "Setting"],
                                      ["hmi.shared", "EnvironmentManager"], ["hmi.shared", "DataManagerReturnTypeQml"],
                                      ["hmi.shared", "NotificationModel"], ["hmi.shared", "SystemInformationNetwork"],
                                      ["hmi.shared", "SystemInformationSubmodule"]]) {
            let message = "";
            try {
                Qt.createQmlObject(`import ${module} 1.0; ${name} {}`, this);
            } catch (error) {
                message = error.qmlErrors[0].message;
            }
            compare(message, `Can't create ${name} in QML`);
        }
    }

    function test_tasksAndPhoneNumbersAreForScriptsToo() {
        const task = Qt.createQmlObject("import hmi.shared 1.0; TaskStatusReceiver {}", this);
        task.setProgress(100);
        compare(task.taskStatus, TaskStatusReceiver.TaskSucceeded);
        compare(PhoneNumberUtility.stripSeparators("+1 (913) p 7"), "+1913p7");
        compare(PhoneNumberUtility.format("913.742.0662"), "(913) 742-0662");
        compare(PhoneNumberUtility.parseNorthAmericanNumberingPlan("1.913 742.0662").areaCode, "913");
    }

    function test_configurationComesFromTheNamedFile() {
        compare(HmiCore.configs.getIntervalPressAndHold(), 350);
        compare(Qt.styleHints.startDragDistance, 10);
        compare(HmiCore.configs.getPrimaryDisplayResolution().length, 2);
        compare(HmiCore.configs.getPrimaryDisplayResolution()[1].width, 1024);
        verify(HmiCore.configs.getThemesPath().endsWith("/tests/qml/tst_Modules/themes"));
        compare(HmiShared.configs.diagnosticModeEnabled, false);
        compare(HmiShared.configs.developerModeEnabled, true);
        compare(HmiShared.configs.scaleViewportToFitWindow, HmiSharedConfigs.ViewportScalingStretch);
    }
}
