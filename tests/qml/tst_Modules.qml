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

    function test_everySingletonIsThere_data() {
        return [
            { tag: "HighlightManager", object: HighlightManager },
            { tag: "HmiCore", object: HmiCore },
            { tag: "KeyboardModelManager", object: KeyboardModelManager },
            { tag: "LanguageManager", object: LanguageManager },
            { tag: "ProcessLauncher", object: ProcessLauncher },
            { tag: "RestrictedModeManager", object: RestrictedModeManager },
            { tag: "SuggestionsManager", object: SuggestionsManager },
            { tag: "StringRegistrationManager", object: StringRegistrationManager },
            { tag: "ThemeManager", object: ThemeManager },
            { tag: "ObjectFactory", object: ObjectFactory },
            { tag: "ActionManager", object: ActionManager },
            { tag: "AppManager", object: AppManager },
            { tag: "BackManager", object: BackManager },
            { tag: "HardwareButtonManager", object: HardwareButtonManager },
            { tag: "HmiShared", object: HmiShared },
            { tag: "ModuleManager", object: ModuleManager },
            { tag: "PagePrintManager", object: PagePrintManager },
            { tag: "HmiAsr", object: HmiAsr },
            { tag: "HmiNavigation", object: HmiNavigation },
            { tag: "HmiVehicle", object: HmiVehicle }
        ];
    }

    function test_everySingletonIsThere(row) {
        verify(row.object !== null && row.object !== undefined);
        compare(typeof row.object, "object");
    }

    function test_recordsAndFacadesCannotBeCreated_data() {
        return [
            { tag: "HmiCoreConfigs", module: "Hmi.Core" },
            { tag: "RestrictedModePolicy", module: "Hmi.Core" },
            { tag: "HmiSharedConfigs", module: "hmi.shared" }
        ];
    }

    function test_recordsAndFacadesCannotBeCreated(row) {
        let message = "";
        try {
            Qt.createQmlObject("import " + row.module + " 1.0\n" + row.tag + " {}", this);
        } catch (error) {
            message = error.qmlErrors[0].message;
        }
        compare(message, "Can't create " + row.tag + " in QML");
    }

    function test_configurationComesFromTheNamedFile() {
        compare(HmiCore.configs.getIntervalPressAndHold(), 350);
        compare(Qt.styleHints.startDragDistance, 10);
        compare(HmiCore.configs.getPrimaryDisplayResolution().length, 2);
        compare(HmiCore.configs.getPrimaryDisplayResolution()[1].width, 1024);
        verify(HmiCore.configs.getThemesPath().endsWith("/tests/qml/themes"));
        compare(HmiShared.configs.diagnosticModeEnabled, false);
        compare(HmiShared.configs.developerModeEnabled, true);
        compare(HmiShared.configs.scaleViewportToFitWindow, HmiSharedConfigs.ViewportScalingStretch);
    }

    function test_applicationViewModeTellsItsBindings() {
        spy.clear();
        HmiCore.applicationViewMode = HmiCore.ApplicationViewModeSplit;
        HmiCore.applicationViewMode = HmiCore.ApplicationViewModeSplit;
        compare(spy.count, 1);
        HmiCore.applicationViewMode = HmiCore.ApplicationViewModeFull;
    }

    SignalSpy {
        id: spy
        target: HmiCore
        signalName: "applicationViewModeChanged"
    }
}
