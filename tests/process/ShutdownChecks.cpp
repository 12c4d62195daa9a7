#include "ChildProcess.h"
#include "NotifySocket.h"

#include <QProcess>
#include <QRegularExpression>
#include <csignal>
#include <gtest/gtest.h>

namespace {

QProcessEnvironment serviceEnvironment(const QString& aSocket)
{
    QProcessEnvironment result = QProcessEnvironment::systemEnvironment();
    result.insert(QStringLiteral("NOTIFY_SOCKET"), aSocket);
    result.insert(QStringLiteral("WATCHDOG_USEC"), QStringLiteral("20000"));
    return result;
}

ChildProcess probe(const char* aWords, const QProcessEnvironment& aEnvironment = {})
{
    return ChildProcess::run(QStringLiteral(HMI_SHUTDOWN_PROBE),
                             QString::fromLatin1(aWords).split(QLatin1Char(' ')), aEnvironment);
}

} // namespace

TEST(Shutdown, EndsAsTheSignalsAskFor)
{
    const struct
    {
        const char* words;
        int status;
        const char* output; ///< a regular expression
    } rows[] = {
        {"early requested manager TERM loop", 0, "requested 0\ninitialized 1\nrequest 1\n"},
        {"manager INT TERM INT TERM TERM loop step", 0, "initialized 1\nrequest 1\n"},
        // Before there is a manager.
        {"early INT requested manager loop", 0, "requested 1\ninitialized 1\nrequest 1\n"},
        {"early TERM INT hang", 130, "SIGINT came again during the start; the process ends at once.\n"},
        {"early INT fullerror TERM hang", 143, ""},
        // While a step hangs, the log can be written or cannot, and standard error neither.
        {"manager TERM loop step TERM hang", 143, "initialized 1\nrequest 1\nSIGTERM came .*'saving'; .*\n"},
        {"early watch step TERM INT hang", 130, "SIGINT came .*'saving'; the process ends at once.\n"},
        {"watch step TERM blocklog TERM hang", 143, "SIGTERM came .*'saving'; the process ends at once.\n"},
        {"watch step TERM fullerror TERM hang", 143, ""},
        // The shutdown began without a signal, so that the first one is met already.
        {"manager watch TERM delete step TERM hang", 143, "initialized 1\nSIGTERM came .*\n"},
        {"strict step TERM unwatch", 0, ".*'saving' takes longer than 0 ms.\n.*'saving' took \\d+ ms.\n"},
        // The handlers of before come back, and a new manager begins anew.
        {"previous early manager delete TERM", 0, "initialized 1\nprevious 15\n"},
        {"previous manager watch delete unwatch TERM", 0, "initialized 1\nprevious 15\n"},
        {"manager watch previous delete unwatch TERM", 0, "initialized 1\nprevious 15\n"},
        {"manager TERM delete requested manager requested", 0,
         "initialized 1\nrequested 1\ninitialized 1\nrequested 0\n"},
        {"previous files manager watch TERM files", 0,
         "initialized 0\nThe shutdown is not watched: .*\nprevious 15\n"},
        {"early fork requested", 0, "child 15\nrequested 0\n"},
    };
    for (const auto& row : rows) {
        const ChildProcess child = probe(row.words);
        EXPECT_TRUE(child.ended) << row.words;
        EXPECT_EQ(child.status, row.status) << row.words;
        const QString pattern = QRegularExpression::anchoredPattern(QString::fromLatin1(row.output));
        EXPECT_TRUE(QRegularExpression(pattern).match(child.output).hasMatch()) << row.words << '\n'
                                                                                << qPrintable(child.output);
    }
}

TEST(Shutdown, LeavesNothingToChildren)
{
    const ChildProcess process = probe("child early manager watch child", serviceEnvironment(QString()));
    const QStringList lines = process.output.split(QLatin1Char('\n'));
    ASSERT_EQ(lines.size(), 4) << qPrintable(process.output);
    EXPECT_EQ(lines[0].toStdString(), lines[2].toStdString());
    EXPECT_TRUE(lines[0].endsWith(QStringLiteral(" none")));
}

TEST(Shutdown, IsToldToTheServiceManager)
{
    const NotifySocket socket;
    ASSERT_TRUE(socket.isBound());
    const QString path = socket.path();
    QProcess process;
    process.setProcessEnvironment(serviceEnvironment(path));
    process.start(QStringLiteral(HMI_SHUTDOWN_PROBE),
                  QStringLiteral("manager notify loop stopping").split(QLatin1Char(' ')));
    std::string told;
    for (int messages = 0; messages < 100 && told.find("STOPPING=1\n") == std::string::npos; ++messages) {
        told += socket.receive() + '\n';
        if (messages == 3)
            ::kill(pid_t(process.processId()), SIGTERM);
    }
    EXPECT_EQ(told.find("READY=1\nSTATUS=drives WATCHDOG=trigger\nWATCHDOG=1\nWATCHDOG=1\n"), 0U) << told;
    EXPECT_TRUE(process.waitForFinished(60000) && process.exitCode() == 0);
    EXPECT_STREQ(qPrintable(probe("notify stopping").output), "");
    EXPECT_TRUE(probe("notify stopping", serviceEnvironment(path + QLatin1Char('-')))
                    .output.startsWith(QStringLiteral("systemd cannot be told \"READY=1\": No such file")));
}
