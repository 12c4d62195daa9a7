import QtQuick 2.15
import QtTest 1.15
import hmi.shared 1.0

TestCase {
    name: "Measurements"

    MeasurementBase { id: measurement; value: distance.value }
    Speed { id: speed }
    Distance { id: distance }
    NumberPrecision {
        id: shown
        precision: MeasurementUnits.getDisplayedPrecisionDistance(valueInput, MeasurementUnits.UnitDistanceKilometer)
        valueInput: MeasurementUnits.convertDistance(distance.value, distance.unit, 1)
    }

    function test_bindingsFollowValueAndUnit() {
        distance.value = 1234;
        compare(shown.valueOutput, "1.2");
        distance.unit = MeasurementUnits.UnitDistanceMile;
        compare(shown.valueOutput, "1986");
        distance.unit = MeasurementUnits.UnitDistanceCount;
        compare(distance.unit, 4);
        compare(measurement.value, 1234);
    }

    function test_theSingletonConverts() {
        compare(MeasurementUnits.convertFuelConsumption(5, MeasurementUnits.UnitFuelConsumptionLiterPer100Kilometer, 1), 20);
        compare(MeasurementUnits.convertSpeed(10, MeasurementUnits.UnitSpeedMetersPerSecond, speed.unit), 36);
        compare(MeasurementUnits.convertDistance(5, 77, MeasurementUnits.UnitDistanceKilometer), 0.005);
    }
}
