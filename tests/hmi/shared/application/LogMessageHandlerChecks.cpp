#include <hmi/shared/application/LogMessageHandler.h>

#include <QMessageLogContext>
#include <QRegularExpression>
#include <csignal>
#include <cstdlib>
#include <sys/resource.h>

#include "FileLogging.h"

#include <hmi/shared/application/LoggingCategory.h>
#include <tests/support/ExpectedMessages.h>

using Hmi::Shared::hmiShared;
using Hmi::Shared::LogMessageHandler;
using HmiTest::Files;

namespace {

using LogFiles = HmiTest::FileLogging;
using LogFilesDeathTest = HmiTest::FileLogging;

bool start() { return LogMessageHandler::instance()->startFileLogging(); }

/** Files by their names behind "a*p_". Each holds its own name, or the one it had before: "1.log>2.log". */
Files named(const QByteArray& aNames)
{
    Files files;
    for (const QByteArray& name : aNames.split(' ')) {
        const QByteArrayList fromTo = name.split('>');
        files[QStringLiteral("a*p_") + QString::fromUtf8(fromTo.last())] = fromTo.first();
    }
    return files;
}

TEST_F(LogFiles, MoveUpByOneAndNeverOntoATakenName)
{
    const struct
    {
        const char* before;
        const char* after;
        int warnings;
    } rows[] = {
        {"1.log 2.log 3.log 4.log 5.log", "1.log>2.log 2.log>3.log 3.log>4.log 4.log>5.log", 0},
        {"1.log 3.log 6.log 07.log 99999999999.log", "1.log>2.log 3.log>4.log", 0},
        {"0.log 1.log x.log strings.db", "0.log 1.log>2.log x.log strings.db", 3},
        {"02.log 2.log 1.log", "02.log 2.log>3.log 1.log>2.log", 1},
        {"02.log 1.log 04.log 4.log", "02.log>3.log 1.log>2.log 04.log 4.log>5.log", 1},
        {"-1.log 1.log5", "-1.log>0.log 1.log5", 1},
        {"-1.log 0.log 99999999999999999999.log", "-1.log 0.log 99999999999999999999.log", 3},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.before);
        write(named(row.before));
        for (int count = 0; count < row.warnings; ++count)
            HmiTest::expectMessageMatching(QtWarningMsg,
                                           QStringLiteral("Log file a.p_.*that name is taken.*"));
        EXPECT_TRUE(start());
        Files after = named(row.after);
        after[QStringLiteral("a*p_1.log")] = "";
        EXPECT_EQ(readAll(), after);
        delete LogMessageHandler::instance();
        for (const QString& name : after.keys())
            QFile::remove(name);
    }
}

TEST_F(LogFiles, LeaveForeignFilesFoldersAndLinksAlone)
{
    write({{QStringLiteral("aXp_1.log"), "another's"}, {QStringLiteral("kept"), "behind a link"}});
    QFile::link(QStringLiteral("kept"), QStringLiteral("a*p_6.log"));
    QFile::link(QStringLiteral("nowhere"), QStringLiteral("a*p_5.log"));
    QDir().mkdir(QStringLiteral("a*p_3.log"));
    write(named("2.log 4.log"));
    Files expected = readAll();
    expected[QStringLiteral("a*p_1.log")] = "";
    HmiTest::expectMessageMatching(QtWarningMsg, QStringLiteral("Log file a.p_2.log stays.* a.p_3.log:.*"));
    HmiTest::expectMessageMatching(QtWarningMsg, QStringLiteral("Log file a.p_4.log stays.* a.p_5.log:.*"));
    EXPECT_TRUE(start());
    EXPECT_EQ(readAll(), expected);
}

TEST_F(LogFiles, ThatCannotBeCreatedLeaveOldFilesAndThePreviousHandler)
{
    QDir().mkdir(QStringLiteral("a*p_2.log"));
    write(named("1.log"));
    HmiTest::expectMessageMatching(QtWarningMsg, QStringLiteral("Log file a.p_1.log stays.*"));
    HmiTest::expectWarning(QStringLiteral("Failed to open log file: a*p_1.log"));
    EXPECT_FALSE(start());
    EXPECT_EQ(readCurrentLog(), "1.log") << "not truncated";

    QDir::setCurrent(QStringLiteral("/proc/self"));
    HmiTest::expectWarning(QStringLiteral("Failed to open log file: a*p_1.log"));
    EXPECT_FALSE(start());
    HmiTest::expectWarning(QStringLiteral("seen by the previous handler"));
    qWarning("seen by the previous handler");
}

TEST_F(LogFiles, HoldOneFormattedLineAMessageInUtf8)
{
    ASSERT_TRUE(start());
    qCDebug(hmiShared, "debug");
    qCInfo(hmiShared, "info");
    qCWarning(hmiShared, "Gr\u00f6\u00dfe \U0001F697");
    qCritical("no category");
    LogMessageHandler::handleMessage(QtFatalMsg, QMessageLogContext("", 0, "", "x"), QStringLiteral("fatal"));
    EXPECT_TRUE(start()) << "a second start changes nothing";
    QString lines = QString::fromUtf8(readCurrentLog());
    lines.replace(QRegularExpression(QStringLiteral("(^|\n)[0-2]\\d:[0-5]\\d:[0-5]\\d:\\d{3} ")),
                  QStringLiteral("\\1@"));
    EXPECT_EQ(lines.toStdString(),
              "@D hmi.shared: debug\n@I hmi.shared: info\n"
              "@W hmi.shared: Gr\u00f6\u00dfe \U0001F697\n@E no category\n@F x: fatal\n");
}

TEST_F(LogFiles, GetNothingOnceTheHandlerIsDeletedOrInQuietMode)
{
    ASSERT_TRUE(start());
    delete LogMessageHandler::instance();
    HmiTest::expectWarning(QStringLiteral("to the previous handler"));
    qWarning("to the previous handler");
    HmiTest::expectWarning(QStringLiteral("by way of a kept handler"));
    LogMessageHandler::handleMessage(QtWarningMsg, QMessageLogContext(),
                                     QStringLiteral("by way of a kept handler"));
    const QtMessageHandler previous = qInstallMessageHandler(&LogMessageHandler::discardMessage);
    qCritical("dropped");
    qInstallMessageHandler(previous);
    EXPECT_EQ(readCurrentLog(), "");
}

void allowFileSize(rlim_t aBytes)
{
    rlimit limit;
    getrlimit(RLIMIT_FSIZE, &limit);
    limit.rlim_cur = aBytes;
    setrlimit(RLIMIT_FSIZE, &limit);
}

TEST_F(LogFilesDeathTest, KeepWholeLinesWhileTheDiskIsFull)
{
    static int sPassedOn = 0;
    const auto run = [] {
        signal(SIGXFSZ, SIG_IGN);
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) { ++sPassedOn; });
        start();
        // The note on standard error must still fit into its own file.
        allowFileSize(4096);
        qInfo().noquote() << QString(4060, QLatin1Char('.'));
        qInfo("fits by half");
        qInfo("nor does this");
        allowFileSize(RLIM_INFINITY);
        qInfo("written last");
        const QByteArrayList lines = readCurrentLog().split('\n');
        const bool whole =
            lines.size() == 3 && lines[0].endsWith("....") && lines[1].mid(13) == "I written last";
        std::exit(whole && sPassedOn == 2 ? 0 : 1);
    };
    EXPECT_EXIT(run(), testing::ExitedWithCode(0),
                "^Cannot write to log file /.*a.p_1.log: File too large.[^\n]*\n$");
}

} // namespace
