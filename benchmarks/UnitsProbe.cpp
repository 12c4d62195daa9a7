// Prints how often memory is asked for when every unit is converted into every other.

#include <cstdio>

#include "AllocationCount.h"
#include "Require.h"
#include <hmi/shared/units/MeasurementUnits.h>

using Hmi::Shared::MeasurementUnits;

/** The invalid unit comes last and is left out: it is not converted. */
template <class Unit>
static double convertAll(double (*aConvert)(double, Unit, Unit) noexcept, int aInvalid)
{
    double sum = 0;
    for (int from = 0; from < aInvalid; ++from)
        for (int to = 0; to < aInvalid; ++to)
            if (from != to)
                sum += aConvert(12.5, Unit(from), Unit(to));
    return sum;
}

int main()
{
    delete new int; // The counting itself is ready.
    const long before = allocationCount();
    const double sum =
        convertAll(&MeasurementUnits::convertDistance, MeasurementUnits::UnitDistanceInvalid) +
        convertAll(&MeasurementUnits::convertFuelConsumption, MeasurementUnits::UnitFuelConsumptionInvalid) +
        convertAll(&MeasurementUnits::convertSpeed, MeasurementUnits::UnitSpeedInvalid) +
        convertAll(&MeasurementUnits::convertTemperature, MeasurementUnits::UnitTemperatureInvalid);
    const long count = allocationCount() - before;
    require(before > 0 && sum > 0, "counting the allocations of conversions");
    std::printf("%ld\n", count);
    return 0;
}
