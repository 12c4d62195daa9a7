#include "VehicleSignalConfigs.h"

namespace Key {
static const QString Odometer = QStringLiteral("VehicleSignals/Odometer");
static const QString Trip = QStringLiteral("VehicleSignals/Trip");
static const QString FuelRange = QStringLiteral("VehicleSignals/FuelRange");
static const QString Speed = QStringLiteral("VehicleSignals/Speed");
static const QString VehicleMoving = QStringLiteral("VehicleSignals/VehicleMoving");
static const QString Gear = QStringLiteral("VehicleSignals/Gear");
static const QString AirTemperature = QStringLiteral("VehicleSignals/AirTemperature");
static const QString Night = QStringLiteral("VehicleSignals/Night");
} // namespace Key

VehicleSignalConfigs::VehicleSignalConfigs(Hmi::Core::ConfigManager& aConfig) :
    Hmi::Core::ConfigFacade(aConfig)
{
    addValue(Key::Odometer, QStringLiteral("Vehicle.TraveledDistance"));
    addValue(Key::Trip, QStringLiteral("Vehicle.TripMeterReading"));
    addValue(Key::FuelRange, QStringLiteral("Vehicle.Powertrain.Range"));
    addValue(Key::Speed, QStringLiteral("Vehicle.Speed"));
    addValue(Key::VehicleMoving, QStringLiteral("Vehicle.IsMoving"));
    addValue(Key::Gear, QStringLiteral("Vehicle.Powertrain.Transmission.SelectedGear"));
    addValue(Key::AirTemperature, QStringLiteral("Vehicle.Exterior.AirTemperature"));
    addValue(Key::Night, QStringLiteral("Vehicle.Cabin.Lights.IsNight"));
}

QString VehicleSignalConfigs::getOdometer() const { return text(Key::Odometer); }

QString VehicleSignalConfigs::getTrip() const { return text(Key::Trip); }

QString VehicleSignalConfigs::getFuelRange() const { return text(Key::FuelRange); }

QString VehicleSignalConfigs::getSpeed() const { return text(Key::Speed); }

QString VehicleSignalConfigs::getVehicleMoving() const { return text(Key::VehicleMoving); }

QString VehicleSignalConfigs::getGear() const { return text(Key::Gear); }

QString VehicleSignalConfigs::getAirTemperature() const { return text(Key::AirTemperature); }

QString VehicleSignalConfigs::getNight() const { return text(Key::Night); }
