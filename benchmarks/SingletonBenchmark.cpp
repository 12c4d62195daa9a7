#include <QObject>
#include <benchmark/benchmark.h>

#include <hmi/core/foundation/SingletonCpp.h>

namespace {

class Service : public Hmi::Core::SingletonCpp<Service>
{};

/** What a class without the templates would have. */
QObject* plainInstance()
{
    static QObject sInstance;
    return &sInstance;
}

} // namespace

static void SingletonRead(benchmark::State& aState)
{
    for (auto _ : aState) {
        benchmark::ClobberMemory();
        benchmark::DoNotOptimize(Service::instance());
    }
}
BENCHMARK(SingletonRead);

static void PlainStaticRead(benchmark::State& aState)
{
    for (auto _ : aState) {
        benchmark::ClobberMemory();
        benchmark::DoNotOptimize(plainInstance());
    }
}
BENCHMARK(PlainStaticRead);
