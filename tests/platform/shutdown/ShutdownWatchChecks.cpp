#include <QThread>
#include <csignal>
#include <gtest/gtest.h>

#include <platform/shutdown/ShutdownWatch.h>
#include <tests/support/ExpectedMessages.h>

TEST(ShutdownWatchThreads, NameEachLateStepOnce)
{
    QT::ShutdownWatch watch(std::chrono::milliseconds(0));
    for (int step = 0; step < 50; ++step) {
        HmiTest::expectWarning(QStringLiteral("The shutdown step '%1' takes longer than 0 ms.").arg(step));
        watch.beginStep(QString::number(step));
    }
}

TEST(ShutdownWatchThreadsDeathTest, EndTheProcessWithTheSecondSignal)
{
    const auto run = [] {
        qInstallMessageHandler(nullptr);
        QT::ShutdownWatch watch;
        watch.beginStep(QStringLiteral("stuck"));
        std::raise(SIGINT);
        std::raise(SIGTERM);
        QThread::sleep(60);
    };
    EXPECT_EXIT(run(), testing::ExitedWithCode(143), "SIGTERM came again during the shutdown step 'stuck'");
}
