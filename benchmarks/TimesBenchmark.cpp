#include <QDateTime>
#include <QLocale>
#include <benchmark/benchmark.h>

#include <hmi/core/language/LanguageManager.h>
#include <hmi/shared/application/modules/HmiSharedGlobal.h>

using Hmi::Shared::HmiSharedGlobal;

static const QDateTime sTime(QDate(2014, 12, 9), QTime(15, 19, 29), Qt::UTC);

static void FormatDateTime(benchmark::State& aState)
{
    Hmi::Core::LanguageManager::instance()->setCurrentLanguage(QStringLiteral("de_DE"));
    HmiSharedGlobal* global = HmiSharedGlobal::instance();
    const QString pattern = HmiSharedGlobal::FormatMonthDayLongYear;
    for (auto _ : aState)
        benchmark::DoNotOptimize(global->formatDateTime(sTime, pattern));
}
BENCHMARK(FormatDateTime);

static void FormatDateTimeAtOffset(benchmark::State& aState)
{
    HmiSharedGlobal* global = HmiSharedGlobal::instance();
    const QString pattern = HmiSharedGlobal::FormatMonthDayLongYear;
    const QString language = QStringLiteral("de_DE");
    for (auto _ : aState)
        benchmark::DoNotOptimize(global->formatDateTime(sTime, pattern, true, -18000, language));
}
BENCHMARK(FormatDateTimeAtOffset);

static void BareLocaleToString(benchmark::State& aState)
{
    const QLocale locale(QLocale::German);
    const QString pattern = HmiSharedGlobal::FormatMonthDayLongYear;
    for (auto _ : aState)
        benchmark::DoNotOptimize(locale.toString(sTime, pattern));
}
BENCHMARK(BareLocaleToString);
