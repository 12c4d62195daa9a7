#pragma once

#include <QObject>

namespace Hmi::Shared {

/**
 * A number with a unit, for QML to bind to: what Distance and Speed have in common. Belongs to its parent and
 * to the GUI thread. A new unit leaves the value as it is; MeasurementUnits converts.
 */
class Q_DECL_EXPORT MeasurementBase : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int unit READ getUnit WRITE setUnit NOTIFY unitChanged)
    Q_PROPERTY(double value READ getValue WRITE setValue NOTIFY valueChanged)

public:
    explicit MeasurementBase(QObject* aParent = nullptr, int aUnit = 0, double aValue = 0.0);

    /** A code of one of the enumerations of MeasurementUnits; the class of the object says which. */
    int getUnit() const { return mUnit; }

    /** Takes any code; classes whose enumeration is known refuse those outside it. */
    virtual void setUnit(int aUnit);

    double getValue() const { return mValue; }

    /** Equality is exact; what is not a number equals nothing, so writing it always counts as a change. */
    void setValue(double aValue);

signals:
    void unitChanged();
    void valueChanged();

private:
    int mUnit;
    double mValue;
};

} // namespace Hmi::Shared
