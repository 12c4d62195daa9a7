#include <hmi/shared/application/LogMessageHandler.h>

#include <QCoreApplication>
#include <QDir>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <atomic>
#include <csignal>
#include <cstdlib>
#include <gtest/gtest.h>
#include <map>
#include <sys/resource.h>
#include <thread>
#include <tuple>
#include <vector>

#include <hmi/shared/application/LoggingCategory.h>
#include <tests/support/ExpectedMessages.h>
#include <tests/support/FilesAndWaits.h>

using Hmi::Shared::hmiShared;
using Hmi::Shared::LogMessageHandler;

namespace {

constexpr int Threads = 4;
constexpr int LinesEach = 3000;

std::atomic<int> sPassedOn{0};

/** Works in a temporary folder as an application "a*p", and ends file logging afterwards. */
struct LogFiles : testing::Test
{
    LogFiles()
    {
        QDir::setCurrent(mFolder.path());
        QCoreApplication::setApplicationName(QStringLiteral("a*p"));
    }
    ~LogFiles() override
    {
        delete LogMessageHandler::instance();
        QCoreApplication::setApplicationName(mOldName);
        QDir::setCurrent(mOldFolder);
    }

    const QTemporaryDir mFolder;
    const QString mOldFolder = QDir::currentPath();
    const QString mOldName = QCoreApplication::applicationName();
};

using LogFilesDeathTest = LogFiles;
using LogMessageHandlerThreads = LogFiles;
using LogMessageHandlerThreadsDeathTest = LogFiles;

bool start() { return LogMessageHandler::instance()->startFileLogging(); }

QByteArray readCurrentLog() { return HmiTest::readFile(QStringLiteral("a*p_1.log")); }

void countPassedOn(QtMsgType, const QMessageLogContext&, const QString&) { ++sPassedOn; }

/**
 * Files by their names behind "a*p_", which they hold. A name that ends with "/" makes a folder, one with "@"
 * a link to another application's file, of which there is but aXp_6.log.
 */
void createFiles(const QTemporaryDir& aFolder, const char* aNames)
{
    HmiTest::writeFile(aFolder, "aXp_6.log", "aXp_6.log");
    for (const QByteArray& name : QByteArray(aNames).split(' ')) {
        const QString path = QStringLiteral("a*p_") + QString::fromUtf8(name);
        if (name.endsWith('/'))
            QDir::current().mkdir(path);
        else if (name.endsWith('@'))
            QFile::link(path.chopped(1).replace(QLatin1Char('*'), QLatin1Char('X')), path.chopped(1));
        else
            HmiTest::writeFile(aFolder, "a*p_" + name, name);
    }
}

/** The names without "a*p_", behind what the file holds where that is not its name: "1.log>2.log". */
std::string listFiles()
{
    QStringList names;
    for (const QString& file : QDir().entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot)) {
        const QString name = QString(file).remove(QStringLiteral("a*p_"));
        const QString content = QString::fromUtf8(HmiTest::readFile(file));
        names << (content == name ? name : content + QLatin1Char('>') + name);
    }
    return names.join(QLatin1Char(' ')).toStdString();
}

TEST_F(LogFiles, MoveUpByOneAndNeverOntoATakenName)
{
    const std::tuple<const char*, const char*, int, bool> rows[] = {
        {"1.log 2.log 3.log 4.log 5.log", ">1.log 1.log>2.log 2.log>3.log 3.log>4.log 4.log>5.log", 0, true},
        {"1.log 3.log 6.log 07.log 99999999999.log", ">1.log 1.log>2.log 3.log>4.log", 0, true},
        {"0.log 1.log x.log strings.db", "0.log >1.log 1.log>2.log strings.db x.log", 3, true},
        {"02.log 1.log 04.log 4.log", "04.log >1.log 1.log>2.log 02.log>3.log 4.log>5.log", 1, true},
        {"-1.log 1.log5", "-1.log>0.log >1.log 1.log5", 1, true},
        {"-1.log 0.log 99999999999999999999.log", "-1.log 0.log >1.log 99999999999999999999.log", 3, true},
        {"2.log 3.log/ 4.log 5.log@ 6.log@", ">1.log 2.log >3.log 4.log >5.log aXp_6.log>6.log", 2, true},
        {"1.log 2.log/", "1.log >2.log", 1, false},
    };
    for (const auto& [before, after, remaining, starts] : rows) {
        SCOPED_TRACE(before);
        const QTemporaryDir folder;
        QDir::setCurrent(folder.path());
        createFiles(folder, before);
        for (int count = 0; count < remaining; ++count)
            HmiTest::expectMessageMatching(QtWarningMsg,
                                           QStringLiteral("Log file a.p_.* stays .*that name is taken.*"));
        if (!starts)
            HmiTest::expectWarning(QStringLiteral("Failed to open log file: a*p_1.log"));
        EXPECT_EQ(start(), starts);
        EXPECT_EQ(listFiles(), std::string(after) + " aXp_6.log");
        delete LogMessageHandler::instance();
    }
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

TEST_F(LogFiles, GetNothingBeforeTheStartAndAfterTheHandlerIsDeleted)
{
    QDir::setCurrent(QStringLiteral("/proc/self"));
    HmiTest::expectWarning(QStringLiteral("Failed to open log file: a*p_1.log"));
    EXPECT_FALSE(start());
    HmiTest::expectWarning(QStringLiteral("not started"));
    qWarning("not started");
    QDir::setCurrent(mFolder.path());
    EXPECT_TRUE(start());
    delete LogMessageHandler::instance();
    HmiTest::expectWarning(QStringLiteral("deleted"));
    qWarning("deleted");
    HmiTest::expectWarning(QStringLiteral("kept handler"));
    LogMessageHandler::handleMessage(QtWarningMsg, QMessageLogContext(), QStringLiteral("kept handler"));
    EXPECT_EQ(readCurrentLog(), "");
}

TEST_F(LogFilesDeathTest, KeepWholeLinesWhileTheDiskIsFull)
{
    const auto run = [](qint64 aBegin) {
        const QString name = QStringLiteral("a*p_1.log");
        sPassedOn = 0;
        signal(SIGXFSZ, SIG_IGN);
        qInstallMessageHandler(&countPassedOn);
        start();
        QFile::resize(name, aBegin);
        // The note on standard error must still fit into its own file.
        const rlimit full{rlim_t(aBegin) + 4096, RLIM_INFINITY};
        setrlimit(RLIMIT_FSIZE, &full);
        qInfo().noquote() << QString(4060, QLatin1Char('.'));
        qInfo("fits by half");
        qInfo("nor does this");
        const rlimit freed{RLIM_INFINITY, RLIM_INFINITY};
        setrlimit(RLIMIT_FSIZE, &freed);
        qInfo("written last");
        QFile log(name);
        const bool isRead = log.open(QFile::ReadOnly) && log.seek(aBegin);
        const QByteArrayList lines = log.readAll().split('\n');
        const bool whole =
            isRead && lines.size() == 3 && lines[0].endsWith("....") && lines[1].mid(13) == "I written last";
        std::exit(whole && sPassedOn == 2 ? 0 : 1);
    };
    // The second is beyond what 32 bits tell of a file.
    for (const qint64 begin : {qint64(0), qint64(3) << 30})
        EXPECT_EXIT(run(begin), testing::ExitedWithCode(0),
                    "^Cannot write to log file /.*a.p_1.log: File too large.[^\n]*\n$");
}

/** The number of lines in the log; each must be whole and later than the one before of its thread. */
int countLines()
{
    QByteArrayList lines = readCurrentLog().split('\n');
    EXPECT_EQ(lines.takeLast(), "");
    std::map<QByteArray, int> next;
    for (const QByteArray& line : qAsConst(lines)) {
        const QByteArrayList words = line.split(' ');
        EXPECT_TRUE(words.size() == 5 && words[0].size() == 12 && words[4] == "end") << line.constData();
        const int number = words.value(3).toInt();
        EXPECT_LE(next[words.value(2)], number);
        next[words.value(2)] = number + 1;
    }
    return lines.size();
}

TEST_F(LogMessageHandlerThreads, LoseNoLineWhileFileLoggingStartsAndEnds)
{
    const QtMessageHandler previous = qInstallMessageHandler(&countPassedOn);
    sPassedOn = 0;
    std::atomic<int> running{Threads};
    std::vector<std::thread> writers;
    for (int thread = 0; thread < Threads; ++thread)
        writers.emplace_back([&running, thread] {
            for (int line = 0; line < LinesEach; ++line)
                qInfo("%d %d end", thread, line);
            --running;
        });
    int written = 0;
    while (running > 0) {
        start();
        // Long enough for the threads to meet.
        while (running > 0 && readCurrentLog().count('\n') < 1000)
            std::this_thread::yield();
        delete LogMessageHandler::instance();
        written += countLines();
    }
    for (std::thread& writer : writers)
        writer.join();
    qInstallMessageHandler(previous);
    EXPECT_EQ(written + sPassedOn, Threads * LinesEach);
}

TEST_F(LogMessageHandlerThreadsDeathTest, MayStillLogWhileTheProcessExits)
{
    const auto run = [] {
        start();
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
