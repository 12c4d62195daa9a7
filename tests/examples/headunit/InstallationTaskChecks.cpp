#include <QFile>
#include <QTemporaryDir>
#include <examples/headunit/InstallationTask.h>
#include <gtest/gtest.h>
#include <tests/support/FilesAndWaits.h>

using HmiTest::waitUntil;
using HmiTest::writeFile;

TEST(InstallationTask, FollowsTheFileOfTheInstallation)
{
    struct Row
    {
        const char* content; ///< null: the file goes
        int progress;
        InstallationTask::TaskStatus status;
    };
    constexpr auto Pending = InstallationTask::TaskPending;
    constexpr auto Succeeded = InstallationTask::TaskSucceeded;
    constexpr auto Failed = InstallationTask::TaskFailed;
    const std::vector<Row> installations[] = {
        {{"5", 5, Pending}, {"62\n", 62, Pending}, {"soon", 62, Pending}, {"100", 100, Succeeded}},
        {{"", 0, Pending}, {"7", 7, Pending}, {nullptr, 7, Succeeded}},
        {{"99", 99, Pending}, {"failed\n", 99, Failed}, {"100", 99, Failed}},
    };
    for (const std::vector<Row>& rows : installations) {
        const QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("installation"));
        writeFile(folder, "installation", rows.front().content);
        InstallationTask task(file);
        for (const Row& row : rows) {
            if (row.content)
                writeFile(folder, "installation", row.content);
            else
                QFile::remove(file);
            EXPECT_TRUE(waitUntil([&] {
                return task.getProgress() == row.progress && task.getTaskStatus() == row.status;
            })) << (row.content ? row.content : "no file")
                << ": " << task.getProgress() << ' ' << task.getTaskStatus();
        }
    }
    const QTemporaryDir empty;
    EXPECT_EQ(InstallationTask(empty.filePath(QStringLiteral("installation"))).getTaskStatus(), Succeeded);
}

TEST(InstallationTask, SeesAFileThatIsReplaced)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("installation"));
    writeFile(folder, "installation", "1");
    InstallationTask task(file);
    for (const int percent : {40, 41}) {
        writeFile(folder, "new", QByteArray::number(percent));
        ASSERT_EQ(std::rename(qPrintable(folder.filePath(QStringLiteral("new"))), qPrintable(file)), 0);
        EXPECT_TRUE(waitUntil([&] { return task.getProgress() == percent; })) << percent;
    }
}
