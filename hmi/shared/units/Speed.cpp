#include <hmi/shared/units/Speed.h>

namespace Hmi::Shared {

Speed::Speed(QObject* aParent, MeasurementUnits::UnitSpeed aUnit, double aValue) :
    MeasurementBase(aParent, aUnit, aValue)
{}

MeasurementUnits::UnitSpeed Speed::getUnitSpeed() const
{
    return static_cast<MeasurementUnits::UnitSpeed>(getUnit());
}

void Speed::setUnitSpeed(MeasurementUnits::UnitSpeed aUnit) { MeasurementBase::setUnit(aUnit); }

void Speed::setUnit(int aUnit)
{
    // Unsigned, so that negative codes are above the range as well.
    if (static_cast<unsigned>(aUnit) <= MeasurementUnits::UnitSpeedInvalid)
        MeasurementBase::setUnit(aUnit);
}

} // namespace Hmi::Shared
