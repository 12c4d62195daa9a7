#pragma once

#include <QObject>
#include <limits>

#include <hmi/core/foundation/SingletonCppQml.h>

namespace Hmi::Shared {

/**
 * The one place where a quantity changes its unit, and where the unit and the rounding step of a displayed
 * distance are decided. "MeasurementUnits" in QML. Native code calls the static functions; they need neither
 * the instance nor an application object, may be called from any thread and allocate nothing, except for the
 * one warning below.
 *
 * A conversion between equal units returns the value untouched, whatever the units are. Every other one goes
 * through a base unit, each step in the order written here, so that all processors compute the same double
 * (users of the library are compiled without floating-point contraction for that). Units that are invalid or
 * out of range are no error: the value passes as if it were in the base unit. Exceptions are named at the
 * functions.
 */
class Q_DECL_EXPORT MeasurementUnits : public Core::SingletonCppQml<MeasurementUnits>
{
    Q_OBJECT

public:
    // The fixed type lets any code that QML or a stored setting brings be passed on.
    enum UnitDistance : int {
        UnitDistanceMeter,
        UnitDistanceKilometer,
        UnitDistanceFeet,
        UnitDistanceYard,
        UnitDistanceMile,
        UnitDistanceInvalid,
        UnitDistanceCount
    };
    Q_ENUM(UnitDistance)

    enum UnitFuelConsumption : int {
        UnitFuelConsumptionLiterPer100Kilometer,
        UnitFuelConsumptionKilometerPerLiter,
        UnitFuelConsumptionMilesPerGallonUs,
        UnitFuelConsumptionMilesPerGallonImperial,
        UnitFuelConsumptionMilesPerLiter,
        UnitFuelConsumptionInvalid,
        UnitFuelConsumptionCount
    };
    Q_ENUM(UnitFuelConsumption)

    enum UnitSpeed : int {
        UnitSpeedMetersPerSecond,
        UnitSpeedKilometersPerHour,
        UnitSpeedMilesPerHour,
        UnitSpeedInvalid,
        UnitSpeedCount
    };
    Q_ENUM(UnitSpeed)

    enum UnitTemperature : int {
        UnitTemperatureCelsius,
        UnitTemperatureFahrenheit,
        UnitTemperatureInvalid,
        UnitTemperatureCount
    };
    Q_ENUM(UnitTemperature)

    explicit MeasurementUnits(QQmlEngine* aEngine = nullptr, QJSEngine* aScriptEngine = nullptr);
    ~MeasurementUnits() override;

    /** Base unit: metres. */
    Q_INVOKABLE static double convertDistance(double a_value, UnitDistance a_unitInput,
                                              UnitDistance a_unitOutput) noexcept;

    /**
     * Base unit: kilometres per litre. Litres per 100 km are the reciprocal of the others: a value of 0 gives
     * the largest finite double between them and kilometres per litre or either kind of miles per gallon,
     * and infinity between them and any further unit.
     */
    Q_INVOKABLE static double convertFuelConsumption(double a_value, UnitFuelConsumption a_unitInput,
                                                     UnitFuelConsumption a_unitOutput) noexcept;

    /** Base unit: metres per second. From or to UnitSpeedInvalid the result is 0. */
    Q_INVOKABLE static double convertSpeed(double a_value, UnitSpeed a_unitInput,
                                           UnitSpeed a_unitOutput) noexcept;

    /**
     * Without a base unit: a pair other than Celsius and Fahrenheit logs a warning and returns the value as
     * it is.
     */
    Q_INVOKABLE static double convertTemperature(double a_value, UnitTemperature a_unitInput,
                                                 UnitTemperature a_unitOutput) noexcept;

    /**
     * The step to which a distance, already in its displayed unit, is rounded on screen: kilometres and miles
     * to 0.1 below 9.95 and to 1 from there; all others to 1 below 10, to 10 below 100 and to 100 from there.
     * A value that is not a number takes the coarsest step.
     */
    Q_INVOKABLE static double getDisplayedPrecisionDistance(const double& a_value,
                                                            UnitDistance a_distanceUnit) noexcept;

    /**
     * The unit in which a distance is shown. Metric: metres below 950 m, kilometres from there; a_yards does
     * not matter. Otherwise below 950 feet yards or feet, as a_yards says, and miles from there.
     */
    Q_INVOKABLE static UnitDistance getDisplayedUnitDistance(const double& a_value, UnitDistance a_unitInput,
                                                             bool a_metric, bool a_yards) noexcept;

private:
    static constexpr double smFeetPerMeter = 3.28084;
    static constexpr double smFeetPerYard = 3.0;
    // The mile of 5280 feet by the factor above, not the international one of 1609.344 m.
    static constexpr double smMetersPerMile = 1609.3439485009937;
    static constexpr double smKilometersPerMile = 1.6093439485009937;
    static constexpr double smLitersPerGallonUs = 3.78541;
    static constexpr double smLitersPerGallonImperial = 4.54609;
    static constexpr double smSecondsPerHour = 3600.0;
    static constexpr double smMetersPerKilometer = 1000.0;

    static double toMeters(double aValue, UnitDistance aUnit) noexcept;
    static double fromMeters(double aMeters, UnitDistance aUnit) noexcept;
    static double toKilometersPerLiter(double aValue, UnitFuelConsumption aUnit) noexcept;
    static double fromKilometersPerLiter(double aKilometersPerLiter, UnitFuelConsumption aUnit) noexcept;
    static bool zeroIsLargest(UnitFuelConsumption aInput, UnitFuelConsumption aOutput) noexcept;
    static double toMetersPerSecond(double aValue, UnitSpeed aUnit) noexcept;
    static double fromMetersPerSecond(double aMetersPerSecond, UnitSpeed aUnit) noexcept;
};

// Inline, so that a conversion between units known to the compiler costs its arithmetic and nothing else.

inline double MeasurementUnits::toMeters(double aValue, UnitDistance aUnit) noexcept
{
    switch (aUnit) {
    case UnitDistanceKilometer:
        return aValue * smMetersPerKilometer;
    case UnitDistanceFeet:
        return aValue / smFeetPerMeter;
    case UnitDistanceYard:
        return aValue * smFeetPerYard / smFeetPerMeter;
    case UnitDistanceMile:
        return aValue * smMetersPerMile;
    default:
        return aValue;
    }
}

inline double MeasurementUnits::fromMeters(double aMeters, UnitDistance aUnit) noexcept
{
    switch (aUnit) {
    case UnitDistanceKilometer:
        return aMeters / smMetersPerKilometer;
    case UnitDistanceFeet:
        return aMeters * smFeetPerMeter;
    case UnitDistanceYard:
        return aMeters * smFeetPerMeter / smFeetPerYard;
    case UnitDistanceMile:
        return aMeters / smMetersPerMile;
    default:
        return aMeters;
    }
}

inline double MeasurementUnits::convertDistance(double a_value, UnitDistance a_unitInput,
                                                UnitDistance a_unitOutput) noexcept
{
    if (a_unitInput == a_unitOutput)
        return a_value;
    return fromMeters(toMeters(a_value, a_unitInput), a_unitOutput);
}

inline double MeasurementUnits::toKilometersPerLiter(double aValue, UnitFuelConsumption aUnit) noexcept
{
    switch (aUnit) {
    case UnitFuelConsumptionLiterPer100Kilometer:
        return 100.0 / aValue;
    case UnitFuelConsumptionMilesPerGallonUs:
        return aValue * smKilometersPerMile / smLitersPerGallonUs;
    case UnitFuelConsumptionMilesPerGallonImperial:
        return aValue * smKilometersPerMile / smLitersPerGallonImperial;
    case UnitFuelConsumptionMilesPerLiter:
        return aValue * smKilometersPerMile;
    default:
        return aValue;
    }
}

inline double MeasurementUnits::fromKilometersPerLiter(double aKilometersPerLiter,
                                                       UnitFuelConsumption aUnit) noexcept
{
    switch (aUnit) {
    case UnitFuelConsumptionLiterPer100Kilometer:
        return 100.0 / aKilometersPerLiter;
    case UnitFuelConsumptionMilesPerGallonUs:
        return aKilometersPerLiter * smLitersPerGallonUs / smKilometersPerMile;
    case UnitFuelConsumptionMilesPerGallonImperial:
        return aKilometersPerLiter * smLitersPerGallonImperial / smKilometersPerMile;
    case UnitFuelConsumptionMilesPerLiter:
        return aKilometersPerLiter / smKilometersPerMile;
    default:
        return aKilometersPerLiter;
    }
}

inline bool MeasurementUnits::zeroIsLargest(UnitFuelConsumption aInput, UnitFuelConsumption aOutput) noexcept
{
    const bool fromReciprocal = aInput == UnitFuelConsumptionLiterPer100Kilometer;
    if (!fromReciprocal && aOutput != UnitFuelConsumptionLiterPer100Kilometer)
        return false;
    const UnitFuelConsumption other = fromReciprocal ? aOutput : aInput;
    return other >= UnitFuelConsumptionKilometerPerLiter &&
           other <= UnitFuelConsumptionMilesPerGallonImperial;
}

inline double MeasurementUnits::convertFuelConsumption(double a_value, UnitFuelConsumption a_unitInput,
                                                       UnitFuelConsumption a_unitOutput) noexcept
{
    if (a_unitInput == a_unitOutput)
        return a_value;
    if (a_value == 0.0 && zeroIsLargest(a_unitInput, a_unitOutput))
        return std::numeric_limits<double>::max();
    return fromKilometersPerLiter(toKilometersPerLiter(a_value, a_unitInput), a_unitOutput);
}

inline double MeasurementUnits::toMetersPerSecond(double aValue, UnitSpeed aUnit) noexcept
{
    switch (aUnit) {
    case UnitSpeedKilometersPerHour:
        return aValue * smMetersPerKilometer / smSecondsPerHour;
    case UnitSpeedMilesPerHour:
        return aValue * smMetersPerMile / smSecondsPerHour;
    default:
        return aValue;
    }
}

inline double MeasurementUnits::fromMetersPerSecond(double aMetersPerSecond, UnitSpeed aUnit) noexcept
{
    switch (aUnit) {
    case UnitSpeedKilometersPerHour:
        return aMetersPerSecond * smSecondsPerHour / smMetersPerKilometer;
    case UnitSpeedMilesPerHour:
        return aMetersPerSecond * smSecondsPerHour / smMetersPerMile;
    default:
        return aMetersPerSecond;
    }
}

inline double MeasurementUnits::convertSpeed(double a_value, UnitSpeed a_unitInput,
                                             UnitSpeed a_unitOutput) noexcept
{
    if (a_unitInput == a_unitOutput)
        return a_value;
    if (a_unitInput == UnitSpeedInvalid || a_unitOutput == UnitSpeedInvalid)
        return 0.0;
    return fromMetersPerSecond(toMetersPerSecond(a_value, a_unitInput), a_unitOutput);
}

} // namespace Hmi::Shared
