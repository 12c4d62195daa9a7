#include "VehicleSignalConfigs.h"

namespace Key {
static const QString Odometer = QStringLiteral("VehicleSignals/Odometer");
static const QString FuelRange = QStringLiteral("VehicleSignals/FuelRange");
static const QString VehicleMoving = QStringLiteral("VehicleSignals/VehicleMoving");
static const QString Gear = QStringLiteral("VehicleSignals/Gear");
} // namespace Key

VehicleSignalConfigs::VehicleSignalConfigs(Hmi::Core::ConfigManager& aConfig) :
    Hmi::Core::ConfigFacade(aConfig)
{
    addValue(Key::Odometer, QStringLiteral("Vehicle.TraveledDistance"));
    addValue(Key::FuelRange, QStringLiteral("Vehicle.Powertrain.Range"));
    addValue(Key::VehicleMoving, QStringLiteral("Vehicle.IsMoving"));
    addValue(Key::Gear, QStringLiteral("Vehicle.Powertrain.Transmission.SelectedGear"));
}

QString VehicleSignalConfigs::getOdometer() const { return text(Key::Odometer); }

QString VehicleSignalConfigs::getFuelRange() const { return text(Key::FuelRange); }

QString VehicleSignalConfigs::getVehicleMoving() const { return text(Key::VehicleMoving); }

QString VehicleSignalConfigs::getGear() const { return text(Key::Gear); }
