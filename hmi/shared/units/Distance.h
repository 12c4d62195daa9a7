#pragma once

#include <hmi/shared/units/MeasurementBase.h>
#include <hmi/shared/units/MeasurementUnits.h>

namespace Hmi::Shared {

/**
 * A length or a way driven or to go, for QML to bind to. Its unit is a MeasurementUnits::UnitDistance.
 * Belongs to its parent and to the GUI thread.
 */
class Q_DECL_EXPORT Distance : public MeasurementBase
{
    Q_OBJECT

public:
    /** Keeps any unit, in range or not. */
    explicit Distance(QObject* aParent = nullptr,
                      MeasurementUnits::UnitDistance aUnit = MeasurementUnits::UnitDistanceMeter,
                      double aValue = 0.0);

    MeasurementUnits::UnitDistance getUnitDistance() const;

    /** Keeps any unit, in range or not. */
    void setUnitDistance(MeasurementUnits::UnitDistance aUnit);

    /** The property's writer: codes outside 0 to UnitDistanceInvalid are ignored in silence. */
    void setUnit(int aUnit) override;
};

} // namespace Hmi::Shared
