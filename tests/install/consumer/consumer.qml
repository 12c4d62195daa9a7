import QtQuick 2.15
import Hmi.Core 1.0
import hmi.shared 1.0

Item {
    Component.onCompleted: {
        const kilometres = MeasurementUnits.convertDistance(1, MeasurementUnits.UnitDistanceMile, MeasurementUnits.UnitDistanceKilometer);
        console.log("1 mile is", kilometres.toFixed(2), "km for", HmiCore.configs.getFontFamilyDefault());
        Qt.callLater(Qt.quit);
    }
}
