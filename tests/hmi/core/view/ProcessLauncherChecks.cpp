#include <QElapsedTimer>
#include <QFileDevice>
#include <QTemporaryDir>
#include <csignal>
#include <gtest/gtest.h>
#include <memory>

#include <hmi/core/view/ProcessLauncher.h>
#include <tests/support/ExpectedMessages.h>
#include <tests/support/FilesAndWaits.h>

using Hmi::Core::ProcessLauncher;
using namespace HmiTest;
using namespace std::chrono_literals;

namespace {

constexpr const char* Stubborn = "trap '' TERM; echo $$ > \"$0\"; exec sleep 60";
constexpr const char* Docile = "echo $$ > \"$0\"; exec sleep 60";

class Launcher : public testing::Test
{
protected:
    Launcher()
    {
        QObject::connect(&*mLauncher, &ProcessLauncher::started, [this](int id) { log("started", id); });
        QObject::connect(&*mLauncher, &ProcessLauncher::failed, [this](int id) { log("failed", id); });
        QObject::connect(&*mLauncher, &ProcessLauncher::finished, [this](int id, int exitCode, bool crashed) {
            EXPECT_FALSE(mLauncher->isRunning(id));
            log(crashed ? "crashed" : "ended", id, QString::number(exitCode));
        });
    }

    void log(const char* aSignal, int aId, const QString& aExitCode = {})
    {
        EXPECT_EQ(aId, mId) << aSignal;
        mSignals.append(QLatin1String(aSignal) + aExitCode);
    }

    /** Runs it to its end and tells the signals that came. */
    std::string signalsOf(const std::function<int()>& aLaunch)
    {
        mSignals.clear();
        mId = aLaunch();
        EXPECT_GT(mId, 0);
        EXPECT_TRUE(waitUntil([this] { return !mLauncher->isRunning(mId); }));
        return joined(mSignals);
    }

    int launchScript(const char* aScript)
    {
        return mLauncher->launch(QStringLiteral("sh"),
                                 {QStringLiteral("-c"), QLatin1String(aScript), readyFile()});
    }

    /** The child's process id, once it has written it to the file it was given. */
    int waitForProcess() const
    {
        EXPECT_TRUE(waitUntil([this] { return readFile(readyFile()).endsWith('\n'); }));
        return readFile(readyFile()).trimmed().toInt();
    }

    QString readyFile() const { return mFolder.filePath(QStringLiteral("ready")); }

    const QTemporaryDir mFolder;
    std::unique_ptr<ProcessLauncher> mLauncher = std::make_unique<ProcessLauncher>(200ms);
    QStringList mSignals;
    int mId = 0;
};

} // namespace

TEST_F(Launcher, ReportsHowAChildEnded)
{
    for (const auto& [script, expected] :
         {std::make_pair("exit 0", "started,ended0"), std::make_pair("exit 7", "started,ended7"),
          std::make_pair("kill -9 $$", "started,crashed9"),
          std::make_pair("read line || exit 3", "started,ended3")})
        EXPECT_EQ(signalsOf([this, text = script] { return launchScript(text); }), expected) << script;
    EXPECT_FALSE(mLauncher->terminate(mId)) << "it has ended";
}

TEST_F(Launcher, RefusesWhatIsNoProgram)
{
    writeFile(mFolder, "text", "no program");
    for (const QString& program :
         {QString(), QStringLiteral("no-such-program-anywhere"), mFolder.filePath(QStringLiteral("text")),
          mFolder.filePath(QStringLiteral("missing")), mFolder.path()}) {
        expectWarning(
            QStringLiteral("The program \"%1\" was not started: there is no executable file of this name.")
                .arg(program));
        EXPECT_EQ(mLauncher->launch(program), 0);
    }
    EXPECT_TRUE(mSignals.isEmpty());
}

TEST_F(Launcher, ReportsAProgramThatCannotRun)
{
    const QString program = mFolder.filePath(QStringLiteral("program"));
    writeFile(mFolder, "program", "#!/no/such/interpreter\n");
    QFile::setPermissions(program, QFileDevice::ReadOwner | QFileDevice::ExeOwner);
    expectMessageMatching(QtWarningMsg, QStringLiteral("The program .*/program\" was not started: .+"));
    EXPECT_EQ(signalsOf([&] { return mLauncher->launch(program); }), "failed");
}

TEST_F(Launcher, AsksAChildToEndAndKillsItWhenItDoesNot)
{
    for (const auto& [script, expected] :
         {std::make_pair(Docile, "started,crashed15"), std::make_pair(Stubborn, "started,crashed9")}) {
        QFile::remove(readyFile());
        const auto launchAndTerminate = [this, text = script] {
            mId = launchScript(text);
            waitForProcess();
            EXPECT_TRUE(mLauncher->terminate(mId));
            EXPECT_TRUE(mLauncher->isRunning(mId)) << "the call does not wait";
            return mId;
        };
        EXPECT_EQ(signalsOf(launchAndTerminate), expected);
    }
}

TEST_F(Launcher, EndsItsChildrenWithItselfSilently)
{
    mId = launchScript(Stubborn);
    const int process = waitForProcess();
    launchScript("exec sleep 60");
    mSignals.clear();
    QElapsedTimer time;
    time.start();
    mLauncher.reset();
    EXPECT_LT(time.elapsed(), 20000);
    EXPECT_EQ(kill(process, 0), -1) << "the child is still there";
    EXPECT_TRUE(mSignals.isEmpty());
}
