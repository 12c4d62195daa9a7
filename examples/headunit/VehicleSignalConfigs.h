#pragma once

#include <QString>

#include <hmi/core/foundation/ConfigFacade.h>

/**
 * Where this product's vehicle has its values: the paths of its signals, in the group "VehicleSignals" of the
 * configuration. The defaults are those of the public Vehicle Signal Specification. Created after the
 * configuration was loaded.
 */
class VehicleSignalConfigs : private Hmi::Core::ConfigFacade
{
public:
    /** The configuration must outlive the facade. */
    explicit VehicleSignalConfigs(Hmi::Core::ConfigManager& aConfig);

    /** Kilometres. */
    QString getOdometer() const;
    /** Kilometres. */
    QString getTrip() const;
    /** Metres. */
    QString getFuelRange() const;
    /** Kilometres per hour. */
    QString getSpeed() const;
    /** A switch. */
    QString getVehicleMoving() const;
    /** A text, "P" for park. */
    QString getGear() const;
    /** Degrees Celsius. */
    QString getAirTemperature() const;
    /** A switch. */
    QString getNight() const;
};
