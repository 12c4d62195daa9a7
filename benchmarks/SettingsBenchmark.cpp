#include <QTemporaryDir>
#include <QVariant>
#include <algorithm>
#include <benchmark/benchmark.h>
#include <chrono>
#include <map>
#include <random>
#include <vector>

#include "SettingsStores.h"
#include <hmi/shared/settings/Setting.h>

using Hmi::Shared::Setting;

namespace {

constexpr int FewSettings = 200;
constexpr int ManySettings = 2000;
constexpr int BatchSize = 20;
constexpr int WritesInTurn = 8;

double median(std::vector<double>& aTimes)
{
    const auto middle = aTimes.begin() + static_cast<std::ptrdiff_t>(aTimes.size() / 2);
    std::nth_element(aTimes.begin(), middle, aTimes.end());
    return *middle;
}

double secondsSince(std::chrono::steady_clock::time_point aStart)
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - aStart).count();
}

/**
 * An iteration writes so many settings, the next ones each time; a value never equals the one before. Beside
 * the mean, the median is told: what a write costs that meets nothing else on the medium.
 */
template <class Write>
void writeInTurn(benchmark::State& aState, const char* aKind, bool aFull, int aCount, int aStep, Write aWrite)
{
    const QTemporaryDir folder;
    const auto store = openStore(aKind, folder.path().toStdString(), aFull);
    store->fill(aCount);
    std::vector<double> times;
    int written = 0;
    for (auto _ : aState) {
        store->tidy();
        const auto start = std::chrono::steady_clock::now();
        aWrite(*store, written % aCount, written + 1);
        times.push_back(secondsSince(start));
        aState.SetIterationTime(times.back());
        written += aStep;
    }
    aState.counters["nanoseconds"] = median(times) * 1e9;
}

} // namespace

static void write(benchmark::State& aState, const char* aKind, bool aFull, int aCount)
{
    writeInTurn(aState, aKind, aFull, aCount, 1, [](SettingsStore& aStore, int aKey, int aValue) {
        aStore.set(aKey, aValue);
        aStore.sync();
    });
}
BENCHMARK_CAPTURE(write, SettingNormal, "Setting", false, FewSettings)->UseManualTime();
BENCHMARK_CAPTURE(write, SqliteNormal, "Sqlite", false, FewSettings)->UseManualTime();
BENCHMARK_CAPTURE(write, SettingFull, "Setting", true, FewSettings)->UseManualTime();
BENCHMARK_CAPTURE(write, ManySettingsFull, "Setting", true, ManySettings)->UseManualTime();

/**
 * Some writes of each store in turn, as the pace of the medium changes from second to second; in any order, as
 * what one store leaves to the medium delays the first write of the next.
 */
static void writeFull(benchmark::State& aState)
{
    const QTemporaryDir folder;
    std::map<std::string, std::unique_ptr<SettingsStore>> stores;
    std::map<std::string, std::vector<double>> times;
    std::vector<std::string> order{"Setting", "Sqlite", "QSettings", "KConfig", "DConf"};
    for (const std::string& kind : order) {
        stores[kind] = openStore(kind, folder.path().toStdString(), true);
        stores[kind]->fill(FewSettings);
    }
    std::minstd_rand random;
    int written = 0;
    for (auto _ : aState) {
        ++written;
        std::shuffle(order.begin(), order.end(), random);
        for (const std::string& kind : order) {
            SettingsStore* const store = stores[kind].get();
            for (int key = 0; key < WritesInTurn; ++key) {
                store->tidy();
                const auto start = std::chrono::steady_clock::now();
                store->set(key, written);
                store->sync();
                times[kind].push_back(secondsSince(start));
            }
        }
    }
    for (auto& [kind, measured] : times)
        aState.counters["full/" + kind] = median(measured) * 1e9;
}
BENCHMARK(writeFull)->Iterations(20);

static void batch(benchmark::State& aState, const char* aKind, bool aFull)
{
    writeInTurn(aState, aKind, aFull, FewSettings, BatchSize,
                [](SettingsStore& aStore, int aKey, int aValue) {
                    aStore.beginBatch();
                    for (int index = 0; index < BatchSize; ++index)
                        aStore.set(aKey + index, aValue);
                    aStore.commitBatch();
                });
}
BENCHMARK_CAPTURE(batch, DataManagerNormal, "DataManager", false)->UseManualTime();
BENCHMARK_CAPTURE(batch, SqliteNormal, "Sqlite", false)->UseManualTime();
BENCHMARK_CAPTURE(batch, DataManagerFull, "DataManager", true)->UseManualTime();
BENCHMARK_CAPTURE(batch, SqliteFull, "Sqlite", true)->UseManualTime();

static void SettingRead(benchmark::State& aState)
{
    const QTemporaryDir folder;
    const auto store = openStore("DataManager", folder.path().toStdString(), false);
    Setting setting(QStringLiteral("setting0"), QStringLiteral("setting0"), Setting::SettingTypeInt, 1,
                    Setting::SettingCategoryGlobal, nullptr);
    setting.setValue(2);
    for (auto _ : aState)
        benchmark::DoNotOptimize(setting.getValue());
}
BENCHMARK(SettingRead);

namespace {

class PlainSetting : public QObject
{
public:
    __attribute__((noinline)) virtual QVariant getValue() const { return mValue; }

private:
    QVariant mValue = 2;
};

} // namespace

static void PlainMemberRead(benchmark::State& aState)
{
    const PlainSetting setting;
    const PlainSetting* read = &setting;
    benchmark::DoNotOptimize(read);
    for (auto _ : aState)
        benchmark::DoNotOptimize(read->getValue());
}
BENCHMARK(PlainMemberRead);
