#include <QObject>
#include <benchmark/benchmark.h>

#include <hmi/core/foundation/SingletonCpp.h>

namespace {

class Service : public Hmi::Core::SingletonCpp<Service>
{};

QObject sPlain;

} // namespace

static void SingletonRead(benchmark::State& aState)
{
    for (auto _ : aState)
        benchmark::DoNotOptimize(Service::instance());
}
BENCHMARK(SingletonRead);

static void PlainStaticRead(benchmark::State& aState)
{
    for (auto _ : aState)
        benchmark::DoNotOptimize(&sPlain);
}
BENCHMARK(PlainStaticRead);
