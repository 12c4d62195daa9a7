#include <QByteArray>
#include <QString>
#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <spdlog/sinks/basic_file_sink.h>
#include <spdlog/spdlog.h>
#include <unistd.h>

#include <hmi/shared/application/LogMessageHandler.h>

using Hmi::Shared::LogMessageHandler;

static const char* const sText = "SettingsManager: the stored value of distanceUnit was replaced";

static void LogLine(benchmark::State& aState)
{
    LogMessageHandler::instance()->startFileLogging();
    for (auto _ : aState)
        qInfo("%s", sText);
    delete LogMessageHandler::instance();
}
BENCHMARK(LogLine);

namespace {

int sDescriptor = -1;

void writeFormatted(QtMsgType aType, const QMessageLogContext& aContext, const QString& aText)
{
    const QByteArray line = qFormatLogMessage(aType, aContext, aText).toUtf8() + '\n';
    benchmark::DoNotOptimize(::write(sDescriptor, line.constData(), static_cast<size_t>(line.size())));
}

} // namespace

static void FormatAndWrite(benchmark::State& aState)
{
    // Started for its message pattern and time zone, so that both rows format alike.
    LogMessageHandler::instance()->startFileLogging();
    sDescriptor = ::open("plain.log", O_CREAT | O_TRUNC | O_WRONLY | O_CLOEXEC, 0644);
    const QtMessageHandler previous = qInstallMessageHandler(&writeFormatted);
    for (auto _ : aState)
        qInfo("%s", sText);
    qInstallMessageHandler(previous);
    ::close(sDescriptor);
    delete LogMessageHandler::instance();
}
BENCHMARK(FormatAndWrite);

static void SpdlogWithFlush(benchmark::State& aState)
{
    const auto logger = spdlog::basic_logger_mt("bench", "spdlog.log", true);
    logger->set_pattern("%H:%M:%S:%e %L %n: %v");
    logger->flush_on(spdlog::level::trace);
    for (auto _ : aState)
        logger->info(sText);
    spdlog::drop("bench");
}
BENCHMARK(SpdlogWithFlush);
