#include <QMetaEnum>
#include <gtest/gtest.h>
#include <limits>
#include <random>

#include <hmi/shared/units/Distance.h>
#include <hmi/shared/units/NumberPrecision.h>
#include <hmi/shared/units/Speed.h>
#include <tests/support/ExpectedMessages.h>

using namespace Hmi::Shared;
using Units = MeasurementUnits;

/** Rows end in ";", their cells are separated by spaces; the row itself is the last cell. */
static QVector<QStringList> rowsOf(const char* aTable)
{
    QVector<QStringList> rows;
    for (const QString& row : QString::fromLatin1(aTable).split(QLatin1Char(';')))
        rows.append(row.simplified().split(QLatin1Char(' ')) << row);
    return rows;
}

/** The unit by its name without that of the enumeration. */
template <class Unit = Units::UnitDistance>
static Unit unitOf(const QString& aName)
{
    const auto units = QMetaEnum::fromType<Unit>();
    return static_cast<Unit>(units.keyToValue(units.name() + aName.toLatin1()));
}

/**
 * Rows as "12 Feet = 4 Yard" to the last bit, with values for which another order of the steps mostly ends in
 * another bit; then there and back over any third of the units, to the rounding of some steps.
 */
template <class Unit>
static void expectConversions(double (*aConvert)(double, Unit, Unit), unsigned aUnits, const char* aTable)
{
    for (const QStringList& row : rowsOf(aTable))
        EXPECT_EQ(aConvert(row[0].toDouble(), unitOf<Unit>(row[1]), unitOf<Unit>(row[4])), row[3].toDouble())
            << qPrintable(row.last());
    std::mt19937 random(20261121);
    const auto anyUnit = [&] { return static_cast<Unit>(random() % aUnits); };
    for (int round = 0; round < 2000; ++round) {
        const Unit from = anyUnit(), over = anyUnit(), to = anyUnit();
        const double value = static_cast<int>(random()) / 1e3;
        const double back = aConvert(aConvert(aConvert(value, from, over), over, to), to, from);
        EXPECT_NEAR(back, value, qAbs(value) * 2e-15 + 1e-13) << from << ' ' << over << ' ' << to;
    }
}

TEST(MeasurementUnits, ConvertsStepByStep)
{
    HmiTest::expectWarning(QStringLiteral(
        "MeasurementUnits::convertTemperature: Convert Failed. Unhandled input or output unit."));
    expectConversions(
        &Units::convertDistance, Units::UnitDistanceInvalid,
        "1433.1 Kilometer = 1433100 Meter; 1433.1 Meter = 1.4330999999999998 Kilometer;"
        "1433.1 Yard = 1310.4265980663486 Meter; 1433.1 Meter = 1567.257268 Yard; 12 Feet = 4 Yard;"
        "1433.1 Mile = 2306350.812596774 Meter; 1433.1 Meter = 0.8904870840909089 Mile;"
        "2.7 Feet = 0.822959973665281 Meter; 2.4 Kilometer = 7874.016 Feet; inf Mile = inf Yard;"
        "-5 Count = -0.005 Kilometer; 2 Kilometer = 2000 Invalid; 0.1 Invalid = 0.1 Invalid");
    expectConversions(
        &Units::convertFuelConsumption, Units::UnitFuelConsumptionInvalid,
        "1611.9 MilesPerGallonUs = 685.289443042828 KilometerPerLiter; 160 LiterPer100Kilometer = 0.625 "
        "Count;"
        "1611.9 MilesPerGallonImperial = 570.6225592957358 Count; 8 Count = 12.5 LiterPer100Kilometer;"
        "1611.9 MilesPerLiter = 2594.101510588752 Count; 1611.9 Count = 1001.5882568181819 MilesPerLiter;"
        "1611.9 Count = 3791.4222032421135 MilesPerGallonUs; 8 Count = 8 Invalid; 7 Invalid = 7 Invalid;"
        "1611.9 Count = 4553.310358438568 MilesPerGallonImperial");
    expectConversions(&Units::convertSpeed, Units::UnitSpeedInvalid,
                      "404.9 KilometersPerHour = 112.47222222222223 MetersPerSecond; 17 Invalid = 17 Invalid;"
                      "404.9 MilesPerHour = 181.00649020779233 MetersPerSecond; -51 Invalid = 0 MilesPerHour;"
                      "404.9 MetersPerSecond = 1457.64 KilometersPerHour; 7 KilometersPerHour = 0 Invalid;"
                      "404.9 MetersPerSecond = 905.7355336363636 MilesPerHour; 7 MetersPerSecond = 7 Count");
    expectConversions(&Units::convertTemperature, Units::UnitTemperatureInvalid,
                      "17.2 Celsius = 62.959999999999994 Fahrenheit; -3.5 Celsius = -3.5 Invalid;"
                      "17.2 Fahrenheit = -8.222222222222221 Celsius; 7 Count = 7 Count");
}

TEST(MeasurementUnits, ConvertsAFuelConsumptionOfZeroBetweenAllUnits)
{
    using Unit = Units::UnitFuelConsumption;
    const double results[] = {0, std::numeric_limits<double>::max(), std::numeric_limits<double>::infinity()};
    const char* table[] = {"0111222", "1000000", "1000000", "1000000", "2000000", "2000000", "2000000"};
    for (int from = 0; from < 7; ++from)
        for (int to = 0; to < 7; ++to)
            EXPECT_EQ(Units::convertFuelConsumption(0, Unit(from), Unit(to)), results[table[from][to] - '0']);
}

TEST(MeasurementUnits, ChoosesStepAndUnitOfADisplayedDistance)
{
    for (const QStringList& row :
         rowsOf("9.94 Kilometer 0.1; 9.95 Kilometer 1; 9.95 Mile 1; -50 Mile 0.1; nan Mile 1; 9.99 Meter 1;"
                "10 Feet 10; 99.9 Yard 10; 100 Yard 100; -500 Feet 1; nan Count 100; 9.95 Invalid 1"))
        EXPECT_EQ(Units::getDisplayedPrecisionDistance(row[0].toDouble(), unitOf(row[1])), row[2].toDouble())
            << qPrintable(row.last());
    // For metric, for feet, for yards.
    for (const QStringList& row : rowsOf(
             "949.9 Meter Meter Mile Mile; 950 Meter Kilometer Mile Mile; 0.95 Kilometer Kilometer Mile Mile;"
             "949.9 Feet Meter Feet Yard; 950 Feet Meter Mile Mile; -5000 Mile Meter Feet Yard;"
             "316 Yard Meter Feet Yard; 317 Yard Meter Mile Mile; nan Yard Kilometer Mile Mile"))
        for (const int choice : {0, 1, 2, 3})
            EXPECT_EQ(
                unitOf(row[qMax(2, choice + 1)]),
                Units::getDisplayedUnitDistance(row[0].toDouble(), unitOf(row[1]), choice < 2, choice % 2))
                << qPrintable(row.last());
}

/** Writes as QML does, through the properties. */
static QString changesOf(MeasurementBase&& aMeasurement, int aLastUnit)
{
    QString changes;
    const auto record = [&] {
        changes += QStringLiteral("%1/%2 ").arg(aMeasurement.getUnit()).arg(aMeasurement.getValue());
    };
    QObject::connect(&aMeasurement, &MeasurementBase::unitChanged, record);
    QObject::connect(&aMeasurement, &MeasurementBase::valueChanged, record);
    for (const int code : {0, 0, aLastUnit, aLastUnit + 1, -1})
        EXPECT_TRUE(aMeasurement.setProperty("unit", code));
    for (const double number : {45.5, 45.5, 45.5 + 1e-14, -1.0})
        EXPECT_TRUE(aMeasurement.setProperty("value", number));
    return changes;
}

TEST(Measurements, TellChangesAndIgnoreUntypedUnitsOutsideTheirEnumeration)
{
    EXPECT_EQ(changesOf(Distance(), 5), QStringLiteral("5/0 5/45.5 5/45.5 5/-1 "));
    EXPECT_EQ(changesOf(Speed(), 3), QStringLiteral("0/0 3/0 3/45.5 3/45.5 3/-1 "));
    Distance distance;
    distance.setUnitDistance(static_cast<Units::UnitDistance>(-7));
    EXPECT_EQ(distance.getUnitDistance(), -7);
    EXPECT_EQ(Speed(nullptr, Units::UnitSpeedCount).getUnitSpeed(), Units::UnitSpeedCount);
}

TEST(NumberPrecision, RoundsToItsStep)
{
    for (const QStringList& row : rowsOf(
             "12345.67 100000 0; 12345.67 20000 20000; 12345.67 30 12360; 12345.67 5 12345; 1e6 0 1e+06;"
             "12345.67 0.5 12345.5; 12345.67 0.00001 12345.67000; 12345.67 -500 12500; 0.04 0.05 0.05;"
             "-12345.67 -0.01 -12345.67; 0.5 1 1; -0.5 1 0; -1.5 1 -1; -1.6 1 -2; -2 1 -2; 2.5 -1 2; 7 inf 0;"
             "-0.25 0.5 0.0; 0.49999999999999994 1 1; 1e300 0.001 2147483.647; inf 1e308 inf; nan 0.1 0;"
             "-inf 0.00001 -21474.83648; -2147483648 1 -2.14748e+09; 2147483647.5 0 2.14748e+09; 7 nan 0")) {
        NumberPrecision number;
        number.setValueInput(row[0].toDouble());
        number.setPrecision(row[1].toDouble());
        EXPECT_EQ(number.getValueOutput(), row[2]) << qPrintable(row.last());
    }
}

TEST(NumberPrecision, TellsItsOwnChangeFirstAndTheTextAlways)
{
    NumberPrecision number;
    QString journal = number.getValueOutput();
    const auto record = [&](char change) { journal += QLatin1Char(change) + number.getValueOutput(); };
    QObject::connect(&number, &NumberPrecision::precisionChanged, [&] { record('p'); });
    QObject::connect(&number, &NumberPrecision::valueInputChanged, [&] { record('v'); });
    QObject::connect(&number, &NumberPrecision::valueOutputChanged, [&] { record('o'); });
    for (const double value : {0.0, 10.0, 10.0, -10.0})
        number.setPrecision(value);
    for (const double value : {0.0, 26.0, 26.0, 26.5})
        number.setValueInput(value);
    EXPECT_EQ(journal, QStringLiteral("0p0o0p0o0v0o30v30o30"));
}
