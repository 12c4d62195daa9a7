import QtQuick 2.15
import QtTest 1.15
import hmi.shared 1.0

TestCase {
    id: settings
    name: "Settings"

    readonly property string bound: SettingsManager.timeFormat.value
    readonly property var entry: SettingsManager.timeFormat

    function test_aWrittenValueReachesItsBindingsOnce() {
        for (const [written, count] of [["h:mm", 1], ["h:mm", 1], ["HH:mm", 2]]) {
            SettingsManager.timeFormat.value = written;
            compare([bound, spy.count], [written, count]);
        }
        SettingsManager.distanceUnit.value = MeasurementUnits.UnitDistanceKilometer;
        compare(SettingsManager.distanceUnit.value, MeasurementUnits.UnitDistanceKilometer);
    }

    function test_whatDoesNotFitChangesNothing() {
        const before = bound;
        ignoreWarning(/Setting::setValue: Could not convert new value to settings type: 3 .*/);
        SettingsManager.timeFormat.value = "x".repeat(257);
        SettingsManager.timeFormat = 3;
        compare([bound, SettingsManager.timeFormat.value, SettingsManager.timeFormat === entry], [before, before, true]);
        compare(SettingsManager.version.value, SettingsManager.VersionThree);
    }

    SignalSpy { id: spy; target: settings.entry; signalName: "valueChanged" }
}
