#include <QVector>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <thread>
#include <vector>

#include "FileLogging.h"

#include <hmi/shared/application/LogMessageHandler.h>

using Hmi::Shared::LogMessageHandler;

namespace {

using LogMessageHandlerThreads = HmiTest::FileLogging;

constexpr int Threads = 4;
constexpr int LinesEach = 3000;

std::atomic<int> sPassedOn{0};
std::atomic<int> sRunning{0};

void logLines(int aThread)
{
    for (int line = 0; line < LinesEach; ++line)
        qInfo("thread %d line %d end", aThread, line);
    --sRunning;
}

/** The number of lines in a log; each must be whole and later than the one before of its thread. */
int countLines(const QByteArray& aContent)
{
    QByteArrayList lines = aContent.split('\n');
    EXPECT_EQ(lines.takeLast(), "");
    QVector<int> last(Threads, -1);
    for (const QByteArray& line : qAsConst(lines)) {
        int thread = 0;
        int number = 0;
        int length = 0;
        sscanf(line.mid(13).constData(), "I thread %d line %d end%n", &thread, &number, &length);
        EXPECT_EQ(length + 13, line.size()) << line.constData();
        EXPECT_LT(last.value(thread), number);
        last[thread] = number;
    }
    return lines.size();
}

TEST_F(LogMessageHandlerThreads, LoseNoLineWhileFileLoggingStartsAndEnds)
{
    const QtMessageHandler previous =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) { ++sPassedOn; });
    sPassedOn = 0;
    sRunning = Threads;
    std::vector<std::thread> writers;
    writers.reserve(Threads);
    for (int thread = 0; thread < Threads; ++thread)
        writers.emplace_back(&logLines, thread);
    int written = 0;
    while (sRunning > 0) {
        LogMessageHandler::instance()->startFileLogging();
        // Long enough for the threads to meet.
        while (sRunning > 0 && readCurrentLog().count('\n') < 1000)
            std::this_thread::yield();
        delete LogMessageHandler::instance();
        written += countLines(readCurrentLog());
    }
    for (std::thread& writer : writers)
        writer.join();
    qInstallMessageHandler(previous);
    EXPECT_EQ(written + sPassedOn, Threads * LinesEach);
}

TEST_F(LogMessageHandlerThreads, MayStillLogWhileTheProcessExits)
{
    const auto run = [] {
        LogMessageHandler::instance()->startFileLogging();
        std::thread([] {
            for (;;)
                qInfo("still running");
        }).detach();
        while (readCurrentLog().isEmpty())
            std::this_thread::yield();
        std::exit(0);
    };
    EXPECT_EXIT(run(), testing::ExitedWithCode(0), "");
}

} // namespace
