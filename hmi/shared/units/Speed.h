#pragma once

#include <hmi/shared/units/MeasurementBase.h>
#include <hmi/shared/units/MeasurementUnits.h>

namespace Hmi::Shared {

/**
 * How fast something moves, for QML to bind to. Its unit is a MeasurementUnits::UnitSpeed. Belongs to its
 * parent and to the GUI thread.
 */
class Q_DECL_EXPORT Speed : public MeasurementBase
{
    Q_OBJECT

public:
    /** Keeps any unit, in range or not. */
    explicit Speed(QObject* aParent = nullptr,
                   MeasurementUnits::UnitSpeed aUnit = MeasurementUnits::UnitSpeedKilometersPerHour,
                   double aValue = 0.0);

    MeasurementUnits::UnitSpeed getUnitSpeed() const;

    /** Keeps any unit, in range or not. */
    void setUnitSpeed(MeasurementUnits::UnitSpeed aUnit);

    /** The property's writer: codes outside 0 to UnitSpeedInvalid are ignored in silence. */
    void setUnit(int aUnit) override;
};

} // namespace Hmi::Shared
