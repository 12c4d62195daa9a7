#pragma once

#include <QObject>
#include <QString>

namespace Hmi::Shared {

/**
 * Shows a number rounded to a multiple of a step: 12345.67 with precision 30 is "12360". Belongs to its
 * parent and to the GUI thread. The text is "0" until the first write that changes something; from then on
 * each such write emits the property's own signal and then valueOutputChanged(), also when the text stays.
 *
 * The number is divided by the step, rounded as by qRound() and multiplied again. A half above zero goes up
 * and a half below zero goes up as well, to the smaller magnitude: 0.5 shows "1", -0.5 shows "0". The count
 * of steps stays within 32 bits: beyond them it remains at the largest or smallest one, so that 1e12 in steps
 * of 1 shows "2.14748e+09". Where the number, the step or what they make of each other is not a number, the
 * text is "0".
 */
class Q_DECL_EXPORT NumberPrecision : public QObject
{
    Q_OBJECT
    Q_PROPERTY(double precision READ getPrecision WRITE setPrecision NOTIFY precisionChanged)
    Q_PROPERTY(double valueInput READ getValueInput WRITE setValueInput NOTIFY valueInputChanged)
    Q_PROPERTY(QString valueOutput READ getValueOutput NOTIFY valueOutputChanged)

public:
    explicit NumberPrecision(QObject* aParent = nullptr);

    /** The step; 0 stands for 1. With a negative step halves go down instead of up. */
    double getPrecision() const { return mPrecision; }
    void setPrecision(double aPrecision);

    double getValueInput() const { return mValueInput; }
    void setValueInput(double aValueInput);

    /**
     * A step below 1 gives as many decimals as its first digit needs (0.01 and 0.05 give two), any other at
     * most six significant digits and from a million on an exponent ("1e+06"). No locale is applied.
     */
    QString getValueOutput() const { return mValueOutput; }

signals:
    void precisionChanged();
    void valueInputChanged();
    void valueOutputChanged();

private:
    void updateValueOutput();

    double mPrecision = 0.0;
    double mValueInput = 0.0;
    QString mValueOutput = QStringLiteral("0");
};

} // namespace Hmi::Shared
