#include <hmi/shared/services/TaskStatusReceiverInstallation.h>

#include <QSignalSpy>
#include <QThread>
#include <gtest/gtest.h>
#include <hmi/shared/services/TaskStatusReceiverPermissions.h>
#include <tests/support/FilesAndWaits.h>
#include <thread>

using namespace Hmi::Shared;

TEST(TaskStatusReceiver, ClampsItsProgressAndSucceedsAtTheMaximum)
{
    TaskStatusReceiver receiver;
    QSignalSpy progress(&receiver, &TaskStatusReceiver::progressChanged);
    QSignalSpy status(&receiver, &TaskStatusReceiver::taskStatusChanged);
    struct Row
    {
        int value;
        int progress;
        int progressSignals;
        TaskStatusReceiver::TaskStatus status;
    };
    const Row rows[] = {
        {-5, 0, 0, TaskStatusReceiver::TaskPending},      {42, 42, 1, TaskStatusReceiver::TaskPending},
        {42, 42, 1, TaskStatusReceiver::TaskPending},     {150, 100, 2, TaskStatusReceiver::TaskSucceeded},
        {100, 100, 2, TaskStatusReceiver::TaskSucceeded}, {-1, 0, 3, TaskStatusReceiver::TaskSucceeded}};
    for (const Row& row : rows) {
        receiver.setProgress(row.value);
        EXPECT_EQ(receiver.getProgress(), row.progress);
        EXPECT_EQ(progress.count(), row.progressSignals);
        EXPECT_EQ(receiver.getTaskStatus(), row.status);
    }
    receiver.setTaskStatus(TaskStatusReceiver::TaskFailed);
    receiver.setTaskStatus(TaskStatusReceiver::TaskFailed);
    EXPECT_EQ(status.count(), 2);
    TaskStatusReceiver small(5);
    small.setProgress(5);
    EXPECT_EQ(small.getTaskStatus(), TaskStatusReceiver::TaskSucceeded);
}

TEST(TaskStatusReceiver, OfAClassIsReportedToAsAWholeAndOnlyOfThatClass)
{
    TaskStatusReceiverInstallation one;
    auto two = std::make_unique<TaskStatusReceiverInstallation>();
    TaskStatusReceiverPermissions other;
    EXPECT_EQ(one.getTaskStatus(), TaskStatusReceiver::TaskSucceeded) << "it is done before the HMI starts";
    // A slot may delete and make receivers.
    std::unique_ptr<TaskStatusReceiverInstallation> three;
    QObject::connect(&one, &TaskStatusReceiver::taskStatusChanged, [&] {
        two.reset();
        three = std::make_unique<TaskStatusReceiverInstallation>();
    });
    QObject::connect(two.get(), &TaskStatusReceiver::taskStatusChanged,
                     [&] { three = std::make_unique<TaskStatusReceiverInstallation>(); });
    TaskStatusReceiverInstallation::reportProgress(42);
    EXPECT_EQ(two->getProgress(), 42);
    TaskStatusReceiverInstallation::reportCompletion(false);
    EXPECT_EQ(one.getTaskStatus(), TaskStatusReceiver::TaskFailed);
    EXPECT_TRUE(three);
    EXPECT_EQ(other.getProgress(), 0);
    EXPECT_EQ(other.getTaskStatus(), TaskStatusReceiver::TaskSucceeded);
}

TEST(TaskStatusReceiverThreads, ReportWhileReceiversComeAndGo)
{
    TaskStatusReceiverPermissions stays;
    std::thread reporter([] {
        for (int percent = 1; percent < 100; ++percent)
            TaskStatusReceiverPermissions::reportProgress(percent);
        TaskStatusReceiverPermissions::reportCompletion(false);
    });
    for (int count = 0; count < 200; ++count)
        const TaskStatusReceiverPermissions passing;
    reporter.join();
    EXPECT_EQ(stays.getProgress(), 0) << "through its own event loop";
    EXPECT_TRUE(HmiTest::waitUntil([&] { return stays.getTaskStatus() == TaskStatusReceiver::TaskFailed; }));
    EXPECT_EQ(stays.getProgress(), 99);
}
