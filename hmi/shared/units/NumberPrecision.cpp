#include <hmi/shared/units/NumberPrecision.h>

#include <cmath>
#include <limits>

namespace Hmi::Shared {

/** As qRound(), which is undefined where the result leaves 32 bits; not a number stays so. */
static double roundedWithin32Bits(double aNumber)
{
    using Limits = std::numeric_limits<int>;
    if (std::isnan(aNumber))
        return aNumber;
    if (aNumber >= Limits::max())
        return Limits::max();
    if (aNumber <= Limits::min())
        return Limits::min();
    return qRound(aNumber);
}

static int decimalsOf(double aStep)
{
    int decimals = 0;
    double magnitude = std::abs(aStep);
    while (magnitude < 1.0) {
        magnitude *= 10.0;
        ++decimals;
    }
    return decimals;
}

static QString textInSteps(double aNumber, double aStep)
{
    const double rounded = roundedWithin32Bits(aNumber / aStep) * aStep;
    if (std::isnan(rounded))
        return QStringLiteral("0");
    if (const int decimals = decimalsOf(aStep))
        return QString::number(rounded, 'f', decimals);
    return QString::number(rounded, 'g', 6);
}

NumberPrecision::NumberPrecision(QObject* aParent) : QObject(aParent) {}

void NumberPrecision::setPrecision(double aPrecision)
{
    if (mPrecision == aPrecision)
        return;
    mPrecision = aPrecision;
    emit precisionChanged();
    updateValueOutput();
}

void NumberPrecision::setValueInput(double aValueInput)
{
    if (mValueInput == aValueInput)
        return;
    mValueInput = aValueInput;
    emit valueInputChanged();
    updateValueOutput();
}

void NumberPrecision::updateValueOutput()
{
    mValueOutput = textInSteps(mValueInput, mPrecision == 0.0 ? 1.0 : mPrecision);
    emit valueOutputChanged();
}

} // namespace Hmi::Shared
