#include <hmi/shared/units/MeasurementBase.h>

namespace Hmi::Shared {

MeasurementBase::MeasurementBase(QObject* aParent, int aUnit, double aValue) :
    QObject(aParent), mUnit(aUnit), mValue(aValue)
{}

void MeasurementBase::setUnit(int aUnit)
{
    if (mUnit == aUnit)
        return;
    mUnit = aUnit;
    emit unitChanged();
}

void MeasurementBase::setValue(double aValue)
{
    if (mValue == aValue)
        return;
    mValue = aValue;
    emit valueChanged();
}

} // namespace Hmi::Shared
