#include "ChildProcess.h"
#include "NotifySocket.h"

#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <csignal>
#include <gtest/gtest.h>
#include <tests/support/FilesAndWaits.h>

using HmiTest::readFile;
using HmiTest::waitUntil;
using HmiTest::writeFile;

namespace {

const char sUsualOutput[] = "map up;radio up;screens;settings false 3;started;callback;";
const char sShutdown[] =
    "screens gone;radio down;map down;service 2 gone;service 1 gone;radio late;map late;";
const char sShutdownMarkers[] =
    "HmiShutdownStart clearViewerAppStart clearViewerAppEnd deInitModulesStart deInitModulesEnd "
    "deInitViewerAppStart deInitViewerAppEnd deleteInstancesCppStart deleteInstancesCppEnd "
    "deInitModulesLateStart deInitModulesLateEnd HmiShutdownEnd";

/** A product's process, told by a word or two what to do. */
class ApplicationProcess : public testing::Test
{
protected:
    void SetUp() override
    {
        writeFile(mFolder, "DataManagerConf.ini", "[Storage]\n");
        writeFile(mFolder, "probe.ini",
                  "[HmiCore]\nGnuLocalstatedir=var\n"
                  "[HmiShared]\nDataManagerEnabled=true\nDataManagerConfigPath=DataManagerConf.ini\n");
        // Qt's "offscreen" leaves its screen behind, which the leak check counts.
        mEnvironment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("minimal"));
        // Qt speaks of it before the command line is known.
        mEnvironment.insert(QStringLiteral("XDG_RUNTIME_DIR"), mFolder.path());
        mProcess.setWorkingDirectory(mFolder.path());
    }
    void TearDown() override
    {
        mProcess.kill();
        mProcess.waitForFinished();
    }

    void start(const char* aWords, const QStringList& aArguments = {})
    {
        mEnvironment.insert(QStringLiteral("PROBE"), QLatin1String(aWords));
        mProcess.setProcessEnvironment(mEnvironment);
        mProcess.start(QStringLiteral(HMI_APPLICATION_PROBE), aArguments);
    }
    bool says(const QByteArray& aLine)
    {
        return waitUntil([&] {
            mOutput += mProcess.readAllStandardOutput();
            mErrors += mProcess.readAllStandardError();
            return ('\n' + mOutput).contains('\n' + aLine + '\n') || mErrors.contains(aLine);
        });
    }
    void signal(int aSignal) { ::kill(static_cast<pid_t>(mProcess.processId()), aSignal); }
    /** Its exit status, or that of a shell for a signal; what it said is in mOutput. */
    int end()
    {
        EXPECT_TRUE(waitUntil([&] { return mProcess.state() == QProcess::NotRunning; }));
        mOutput += mProcess.readAllStandardOutput();
        mErrors += mProcess.readAllStandardError();
        return mProcess.exitStatus() == QProcess::CrashExit ? 128 + mProcess.exitCode() : mProcess.exitCode();
    }
    /** The lines but for that of the markers. */
    std::string output()
    {
        QByteArray lines = mOutput.left(mOutput.indexOf("markers "));
        return lines.replace('\n', ';').toStdString();
    }
    std::string markers() { return mOutput.mid(mOutput.indexOf("markers ") + 8).trimmed().toStdString(); }
    QStringList logFiles() const
    {
        return QDir(mFolder.path()).entryList({QStringLiteral("*.log")}, QDir::Files, QDir::Name);
    }

    const QTemporaryDir mFolder;
    QProcessEnvironment mEnvironment = QProcessEnvironment::systemEnvironment();
    QProcess mProcess;
    QByteArray mOutput;
    QByteArray mErrors;
};

} // namespace

TEST_F(ApplicationProcess, StartsInStagesAndShutsDownInOrder)
{
    start("twice");
    ASSERT_TRUE(says("started"));
    signal(SIGTERM);
    EXPECT_EQ(end(), 0);
    EXPECT_EQ(output(), std::string(sUsualOutput) + sShutdown);
    EXPECT_EQ(markers(), std::string("HmiInitStart initEnd ") + sShutdownMarkers);
    EXPECT_TRUE(mErrors.contains("HMI logging configuration file not found:\n    "));
    EXPECT_TRUE(mErrors.contains("Checking for startup measurement descriptor: "));
    EXPECT_TRUE(mErrors.contains("Checking for shutdown measurement descriptor: "));
}

TEST_F(ApplicationProcess, EndsInOrderHoweverItIsAsked)
{
    struct Row
    {
        const char* words;
        int signal;
        std::string output;
    };
    const std::string usual = sUsualOutput;
    const Row rows[] = {{"quit", 0, "map up;radio up;screens;settings false 3;"},
                        {"request-after-init", 0, "map up;radio up;screens;settings false 3;screens gone;"},
                        {"trim quit", 0, "map up;radio up;screens;trimmed 1;settings false 3;"},
                        {"", SIGINT, usual},
                        {"task", SIGTERM, usual},
                        {"task task-waits", SIGTERM, "started;"},
                        {"signal-before-init", 0, ""},
                        {"request-before-init", 0, ""},
                        {"signal-in-init", 0, "map up;radio up;screens;"},
                        {"fail quit", 0, "map up;radio up;"},
                        {"task task-fails", 0, ""}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.words);
        mOutput.clear();
        start(row.words);
        if (row.signal != 0) {
            ASSERT_TRUE(says("started")) << mErrors.toStdString();
            signal(row.signal);
        }
        EXPECT_EQ(end(), 0);
        const bool isInOrder = output().find("settings") != std::string::npos;
        EXPECT_EQ(output().substr(0, row.output.size()), row.output);
        EXPECT_EQ(markers().find("HmiShutdownEnd") != std::string::npos, isInOrder) << mOutput.toStdString();
        EXPECT_EQ(output().find("screens gone") != std::string::npos, isInOrder);
    }
    EXPECT_TRUE(mErrors.contains("ERROR: Installation failed to complete. Quitting application."));
    EXPECT_TRUE(mErrors.contains("radio"));
}

TEST_F(ApplicationProcess, EndsAtOnceWithTheSecondSignalWhileAModuleHangs)
{
    start("hang");
    ASSERT_TRUE(says("started"));
    signal(SIGTERM);
    ASSERT_TRUE(says("The shutdown step 'deInitModules' takes longer than 2000 ms."));
    signal(SIGTERM);
    EXPECT_EQ(end(), 128 + SIGTERM);
}

TEST_F(ApplicationProcess, StopsWhereAProductForgotItsNonBlockingModules)
{
    start("blocking");
    EXPECT_NE(end(), 0);
    EXPECT_TRUE(mErrors.contains("Application::initNonBlockingModules() must be called by derived classes"));
    start("stays quit");
    EXPECT_NE(end(), 0);
    EXPECT_TRUE(
        mErrors.contains("Application::deInitNonBlockingModules() must be called by derived classes"));
}

TEST_F(ApplicationProcess, ShowsScreensWhereTheModulesAreInstalledAsPluginsToo)
{
    mEnvironment.insert(QStringLiteral("QML2_IMPORT_PATH"), QStringLiteral(HMI_QML_DIRECTORY));
    // The engine keeps memory until exit.
    mEnvironment.insert(QStringLiteral("ASAN_OPTIONS"), QStringLiteral("detect_leaks=0"));
    start("import");
    EXPECT_TRUE(says("screen object")) << mOutput.constData() << mErrors.constData();
    ASSERT_TRUE(says("started"));
    signal(SIGTERM);
    EXPECT_EQ(end(), 0);
}

TEST_F(ApplicationProcess, LogsAsTheCommandLineSays)
{
    start("quit", {QStringLiteral("-q"), QStringLiteral("-l")});
    EXPECT_EQ(end(), 0);
    EXPECT_EQ(mErrors.toStdString(), "");
    EXPECT_EQ(HmiTest::joined(logFiles()), "") << "quiet wins";
    for (int run = 0; run < 6; ++run) {
        start("quit", {QStringLiteral("--log")});
        EXPECT_EQ(end(), 0);
    }
    EXPECT_EQ(HmiTest::joined(logFiles()),
              "hmi_probe_1.log,hmi_probe_2.log,hmi_probe_3.log,hmi_probe_4.log,hmi_probe_5.log");
    EXPECT_TRUE(readFile(mFolder.filePath(QStringLiteral("hmi_probe_1.log"))).contains("HMI logging"));
    mOutput.clear();
    // Help ends the process while the application stands, which is no leak.
    mEnvironment.insert(QStringLiteral("ASAN_OPTIONS"), QStringLiteral("detect_leaks=0"));
    start("", {QStringLiteral("--help")});
    EXPECT_EQ(end(), 0);
    EXPECT_TRUE(mOutput.contains("Don't emit typical debug output"));
    EXPECT_TRUE(QString::fromUtf8(mOutput).simplified().contains(
        QStringLiteral("Writes logging output to file:hmi_probe<n>.log (-q option takes precedence)")));
}

TEST_F(ApplicationProcess, TellsTheServiceManagerWhenItIsUpAndWhenItEnds)
{
    const NotifySocket socket;
    mEnvironment.insert(QStringLiteral("NOTIFY_SOCKET"), socket.path());
    start("");
    EXPECT_EQ(socket.receive(), "READY=1");
    ASSERT_TRUE(says("callback"));
    signal(SIGTERM);
    EXPECT_EQ(socket.receive(), "STOPPING=1");
    EXPECT_EQ(end(), 0);
}

TEST_F(ApplicationProcess, RecordsItsStartAndItsShutdown)
{
    QDir(mFolder.path()).mkpath(QStringLiteral("var/metron"));
    writeFile(mFolder, "var/metron/ApplicationStartup.json", R"({"name": "ApplicationStartup"})");
    writeFile(mFolder, "var/metron/ApplicationShutdown.json", R"({"name": "ApplicationShutdown"})");
    start("quit");
    EXPECT_EQ(end(), 0);
    const QByteArray startUp =
        readFile(mFolder.filePath(QStringLiteral("var/metron/ApplicationStartup_res.json")));
    EXPECT_TRUE(startUp.contains("Hmi/Core/loadConfig") && startUp.contains("hmi/probe/initEnd") &&
                startUp.contains("\"Hmi/Shared/initLibrary\""))
        << startUp.toStdString();
    const QByteArray shutdown =
        readFile(mFolder.filePath(QStringLiteral("var/metron/ApplicationShutdown_res.json")));
    EXPECT_TRUE(shutdown.contains("hmi/probe/deInitModules") && !shutdown.contains("HmiInitStart"));
}
