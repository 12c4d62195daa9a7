#include <hmi/shared/units/Distance.h>

namespace Hmi::Shared {

Distance::Distance(QObject* aParent, MeasurementUnits::UnitDistance aUnit, double aValue) :
    MeasurementBase(aParent, aUnit, aValue)
{}

MeasurementUnits::UnitDistance Distance::getUnitDistance() const
{
    return static_cast<MeasurementUnits::UnitDistance>(getUnit());
}

void Distance::setUnitDistance(MeasurementUnits::UnitDistance aUnit) { MeasurementBase::setUnit(aUnit); }

void Distance::setUnit(int aUnit)
{
    // Unsigned, so that negative codes are above the range as well.
    if (static_cast<unsigned>(aUnit) <= MeasurementUnits::UnitDistanceInvalid)
        MeasurementBase::setUnit(aUnit);
}

} // namespace Hmi::Shared
