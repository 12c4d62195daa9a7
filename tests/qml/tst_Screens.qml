import QtQuick 2.15
import QtTest 1.15
import hmi.shared 1.0
import Hmi.Core 1.0

// What needs a window: screenshots, key events, actions and apps.
Item {
    id: screen
    width: 200
    height: 100
    focus: true

    SignalSpy { id: printed; target: PagePrintManager; signalName: "printed" }
    SignalSpy { id: pressed; target: HardwareButtonManager; signalName: "buttonPressed" }
    SignalSpy { id: longPressed; target: HardwareButtonManager; signalName: "buttonLongPressed" }
    SignalSpy { id: released; target: HardwareButtonManager; signalName: "buttonReleased" }
    SignalSpy { id: triggered; target: ActionManager; signalName: "actionTriggered" }

    Repeater {
        id: apps
        model: AppManager.apps
        Text { text: modelData.title }
    }

    TestCase {
        name: "Screens"
        when: windowShown

        function test_aScreenshotIsNamedAfterItsTime() {
            ignoreWarning(/Cannot print to/);
            compare(HmiShared.saveScreenshot(null), "");
            const path = HmiShared.saveScreenshot(screen);
            verify(/\/screenshot-\d{4}-\d\d-\d\d_\d\d_\d\d_\d\d_\d{3}\.png$/.test(path));
            printed.wait();
            compare(printed.signalArguments[0][0], path);
        }

        function test_whatIsNoItemIsNotPrinted() {
            ignoreWarning(/Cannot print to "x\.png"/);
            verify(!PagePrintManager.print(HmiShared, "x.png"));
        }

        function test_aHardwareButtonIsPressedHeldAndReleased() {
            keyPress(Qt.Key_VolumeUp);
            compare(pressed.signalArguments[0][0], "VolumeUp");
            verify(HardwareButtonManager.isPressed("VolumeUp"));
            longPressed.wait();
            keyRelease(Qt.Key_VolumeUp);
            compare(released.signalArguments[0][0], "VolumeUp");
            compare(pressed.count, 1);
        }

        function test_anActionIsTriggeredWithItsArguments() {
            verify(ActionManager.addAction("dial"));
            verify(ActionManager.invoke("dial", { number: "742-0662" }));
            compare(triggered.signalArguments[0][0], "dial");
            compare(triggered.signalArguments[0][1].number, "742-0662");
            ActionManager.removeAction("dial");
        }

        function test_appsAreAModelAndOneIsShown() {
            verify(AppManager.addApp("media", "Media", "qrc:/Media.qml"));
            compare(apps.count, 1);
            compare(apps.itemAt(0).text, "Media");
            compare(AppManager.currentApp.page, "");
            verify(AppManager.show("media"));
            compare(AppManager.currentApp.page, "qrc:/Media.qml");
        }
    }
}
