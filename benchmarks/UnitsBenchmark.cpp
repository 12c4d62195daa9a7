#include <KUnitConversion/Converter>
#include <array>
#include <benchmark/benchmark.h>

#include <hmi/shared/units/Distance.h>
#include <hmi/shared/units/MeasurementUnits.h>
#include <hmi/shared/units/NumberPrecision.h>

using Hmi::Shared::MeasurementUnits;

/** A single conversion is too short to be timed: each round makes 64. */
template <class Convert>
static void convertMany(benchmark::State& aState, Convert aConvert)
{
    alignas(64) std::array<double, 64> values{};
    values.fill(1234.5);
    alignas(64) std::array<double, 64> converted{};
    for (auto _ : aState) {
        benchmark::DoNotOptimize(values.data());
        for (std::size_t index = 0; index < values.size(); ++index)
            converted[index] = aConvert(values[index]);
        benchmark::DoNotOptimize(converted.data());
        benchmark::ClobberMemory();
    }
}

static void ConvertDistance(benchmark::State& aState)
{
    convertMany(aState, [](double aMeters) {
        return MeasurementUnits::convertDistance(aMeters, MeasurementUnits::UnitDistanceMeter,
                                                 MeasurementUnits::UnitDistanceFeet);
    });
}
BENCHMARK(ConvertDistance);

static void InlineMultiplication(benchmark::State& aState)
{
    convertMany(aState, [](double aMeters) { return aMeters * 3.28084; });
}
BENCHMARK(InlineMultiplication);

static void ConvertDistanceByVariables(benchmark::State& aState)
{
    convertMany(aState, [](double aMeters) {
        auto from = MeasurementUnits::UnitDistanceMeter;
        auto to = MeasurementUnits::UnitDistanceFeet;
        benchmark::DoNotOptimize(from);
        benchmark::DoNotOptimize(to);
        return MeasurementUnits::convertDistance(aMeters, from, to);
    });
}
BENCHMARK(ConvertDistanceByVariables);

static void KUnitConversionDistance(benchmark::State& aState)
{
    convertMany(aState, [](double aMeters) {
        return KUnitConversion::Value(aMeters, KUnitConversion::Meter)
            .convertTo(KUnitConversion::Foot)
            .number();
    });
}
BENCHMARK(KUnitConversionDistance);

static void NumberPrecisionWrite(benchmark::State& aState)
{
    Hmi::Shared::NumberPrecision number;
    number.setPrecision(0.1);
    double value = 0.0;
    for (auto _ : aState)
        number.setValueInput(value += 0.25);
}
BENCHMARK(NumberPrecisionWrite);

static void PlainPropertyWrite(benchmark::State& aState)
{
    Hmi::Shared::Distance distance;
    double value = 0.0;
    for (auto _ : aState)
        distance.setValue(value += 0.25);
}
BENCHMARK(PlainPropertyWrite);
