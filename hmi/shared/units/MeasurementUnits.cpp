#include <hmi/shared/units/MeasurementUnits.h>

#include <QtDebug>

namespace Hmi::Shared {

MeasurementUnits::MeasurementUnits(QQmlEngine*, QJSEngine*) {}

MeasurementUnits::~MeasurementUnits() = default;

double MeasurementUnits::convertTemperature(double a_value, UnitTemperature a_unitInput,
                                            UnitTemperature a_unitOutput) noexcept
{
    if (a_unitInput == a_unitOutput)
        return a_value;
    if (a_unitInput == UnitTemperatureCelsius && a_unitOutput == UnitTemperatureFahrenheit)
        return a_value * 9.0 / 5.0 + 32.0;
    if (a_unitInput == UnitTemperatureFahrenheit && a_unitOutput == UnitTemperatureCelsius)
        return (a_value - 32.0) * 5.0 / 9.0;
    qWarning("MeasurementUnits::convertTemperature: Convert Failed. Unhandled input or output unit.");
    return a_value;
}

double MeasurementUnits::getDisplayedPrecisionDistance(const double& a_value,
                                                       UnitDistance a_distanceUnit) noexcept
{
    if (a_distanceUnit == UnitDistanceKilometer || a_distanceUnit == UnitDistanceMile)
        return a_value < 9.95 ? 0.1 : 1.0;
    if (a_value < 10.0)
        return 1.0;
    return a_value < 100.0 ? 10.0 : 100.0;
}

MeasurementUnits::UnitDistance MeasurementUnits::getDisplayedUnitDistance(const double& a_value,
                                                                          UnitDistance a_unitInput,
                                                                          bool a_metric,
                                                                          bool a_yards) noexcept
{
    constexpr double limit = 950.0;
    if (a_metric)
        return convertDistance(a_value, a_unitInput, UnitDistanceMeter) < limit ? UnitDistanceMeter
                                                                                : UnitDistanceKilometer;
    if (convertDistance(a_value, a_unitInput, UnitDistanceFeet) < limit)
        return a_yards ? UnitDistanceYard : UnitDistanceFeet;
    return UnitDistanceMile;
}

} // namespace Hmi::Shared
