#include <QFile>
#include <QHash>
#include <QSettings>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <chrono>

#include <hmi/core/foundation/ConfigManager.h>

using Hmi::Core::ConfigManager;

namespace {

/**
 * A configuration of 50 keys in two groups, in many copies taken in turn: QSettings keeps the latest files
 * that it parsed, but an application starts without.
 */
class ConfigFile
{
public:
    ConfigFile()
    {
        for (mNext = 0; mNext < Copies; ++mNext)
            writeCopy();
    }

    QString path() { return mFolder.filePath(QStringLiteral("%1.ini").arg(mNext++ % Copies)); }

private:
    static constexpr int Copies = 64;

    void writeCopy()
    {
        QFile file(mFolder.filePath(QStringLiteral("%1.ini").arg(mNext)));
        if (!file.open(QFile::WriteOnly))
            qFatal("%s cannot be written", qPrintable(file.fileName()));
        for (const char* group : {"HmiCore", "HmiShared"}) {
            file.write(QByteArray("[") + group + "]\n");
            for (int key = 0; key < 25; ++key)
                file.write("Key" + QByteArray::number(key) + "=../share/value/" + QByteArray::number(key) +
                           '\n');
        }
    }

    QTemporaryDir mFolder;
    int mNext = 0;
};

/** Times its own life: a configuration is loaded once and never put away, so that is left out. */
class Stopwatch
{
public:
    explicit Stopwatch(benchmark::State& aState) : mState(aState) {}
    ~Stopwatch()
    {
        const auto end = std::chrono::steady_clock::now();
        mState.SetIterationTime(std::chrono::duration<double>(end - mStart).count());
    }
    Q_DISABLE_COPY_MOVE(Stopwatch)

private:
    benchmark::State& mState;
    const std::chrono::steady_clock::time_point mStart = std::chrono::steady_clock::now();
};

const QString sKey = QStringLiteral("HmiCore/Key7");

} // namespace

static void ConfigLoad(benchmark::State& aState)
{
    ConfigFile file;
    for (auto _ : aState) {
        ConfigManager config;
        const QString path = file.path();
        const Stopwatch stopwatch(aState);
        benchmark::DoNotOptimize(config.load(path));
    }
}
BENCHMARK(ConfigLoad)->UseManualTime();

static void BareSettingsRead(benchmark::State& aState)
{
    ConfigFile file;
    for (auto _ : aState) {
        const QString path = file.path();
        const Stopwatch stopwatch(aState);
        const QSettings settings(path, QSettings::IniFormat);
        const QStringList keys = settings.allKeys();
        for (const QString& key : keys)
            benchmark::DoNotOptimize(settings.value(key));
    }
}
BENCHMARK(BareSettingsRead)->UseManualTime();

static void ConfigValue(benchmark::State& aState)
{
    ConfigFile file;
    ConfigManager config;
    config.load(file.path());
    for (auto _ : aState)
        benchmark::DoNotOptimize(config.value(sKey, false));
}
BENCHMARK(ConfigValue);

static void BareHashLookUp(benchmark::State& aState)
{
    ConfigFile file;
    QHash<QString, QVariant> values;
    const QSettings settings(file.path(), QSettings::IniFormat);
    const QStringList keys = settings.allKeys();
    for (const QString& key : keys)
        values.insert(key, settings.value(key));
    for (auto _ : aState)
        benchmark::DoNotOptimize(values.value(sKey));
}
BENCHMARK(BareHashLookUp);
