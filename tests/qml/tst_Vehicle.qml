import QtQuick 2.15
import QtTest 1.15
import hmi.shared 1.0

TestCase {
    name: "Vehicle"

    readonly property string warning: vehicle.fuelWarning === VehicleInformationPolicy.FuelWarningLow ? "low" : ""

    VehicleInformationPolicy { id: vehicle }

    function test_bindingsFollowTheVehicle() {
        vehicle.setFuelWarning(VehicleInformationPolicy.FuelWarningLow);
        compare(warning, "low");
        vehicle.setEvConnectorsQml([VehicleInformationPolicy.EvConnectorMarechal, 1]);
        compare(vehicle.evConnectors.length, 2);
        compare(Number(vehicle.evConnectors[0]), VehicleInformationPolicy.EvConnectorMarechal);
        vehicle.setVehicleIdentificationNumber("V1");
        compare([vehicle.vehicleIdentificationNumber, vehicle.odometer, vehicle.airDrag], ["V1", 0, -1]);
        verify(vehicle.isFoursquareSupported() && vehicle.isTrafficMarketRegion() && !vehicle.isIgnoreTsrRegion());
    }
}
