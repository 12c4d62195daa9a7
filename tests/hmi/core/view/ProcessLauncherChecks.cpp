#include <csignal>
#include <gtest/gtest.h>
#include <optional>
#include <tuple>

#include <hmi/core/view/ProcessLauncher.h>
#include <tests/support/ExpectedMessages.h>
#include <tests/support/FilesAndWaits.h>

using Hmi::Core::ProcessLauncher;
using namespace HmiTest;
using namespace std::chrono_literals;

namespace {

constexpr const char* Stubborn = "trap '' TERM; echo $$ > \"$0\"; exec sleep 60";

class Launcher : public testing::Test
{
protected:
    Launcher()
    {
        QObject::connect(&*mLauncher, &ProcessLauncher::started, [this](int id) { log(id, "started"); });
        QObject::connect(&*mLauncher, &ProcessLauncher::failed, [this](int id) { log(id, "failed"); });
        QObject::connect(&*mLauncher, &ProcessLauncher::finished, [this](int id, int exitCode, bool crashed) {
            log(id, (crashed ? " crashed " : " ended ") + std::to_string(exitCode));
        });
    }

    void log(int aId, const std::string& aSignal)
    {
        EXPECT_EQ(aId, mId) << aSignal;
        mSignals += aSignal;
    }

    void launchScript(const char* aScript)
    {
        mSignals.clear();
        QFile::remove(mReadyFile);
        mId = mLauncher->launch(QStringLiteral("sh"),
                                {QStringLiteral("-c"), QLatin1String(aScript), mReadyFile});
    }

    /** The child's process id, once it has written it to the file it was given. */
    int waitForProcess() const
    {
        EXPECT_TRUE(waitUntil([this] { return readFile(mReadyFile).endsWith('\n'); }));
        return readFile(mReadyFile).trimmed().toInt();
    }

    std::string signalsToTheEnd()
    {
        EXPECT_TRUE(waitUntil([this] { return !mLauncher->isRunning(mId); }));
        return mSignals;
    }

    const QTemporaryDir mFolder;
    const QString mReadyFile = mFolder.filePath(QStringLiteral("ready"));
    std::optional<ProcessLauncher> mLauncher{200ms};
    std::string mSignals;
    int mId = 0;
};

} // namespace

TEST_F(Launcher, TellsOnceHowAChildEndedByItselfOrWhenAsked)
{
    using Case = std::tuple<const char*, bool, const char*>;
    for (const auto& [script, isAsked, expected] :
         {Case{"exit 7", false, "started ended 7"}, Case{"read line || exit 3", false, "started ended 3"},
          Case{"kill -9 $$", false, "started crashed 9"},
          Case{"echo $$ > \"$0\"; exec sleep 60", true, "started crashed 15"},
          Case{Stubborn, true, "started crashed 9"}}) {
        launchScript(script);
        if (isAsked) {
            waitForProcess();
            EXPECT_TRUE(mLauncher->terminate(mId));
            EXPECT_TRUE(mLauncher->isRunning(mId)) << "the call does not wait";
        }
        EXPECT_EQ(signalsToTheEnd(), expected) << script;
    }
    EXPECT_FALSE(mLauncher->terminate(mId)) << "it has ended";
}

TEST_F(Launcher, KeepsToItselfWhatTheServiceManagerSays)
{
    qputenv("NOTIFY_SOCKET", "/run/systemd/notify");
    launchScript("exit ${NOTIFY_SOCKET:+4}");
    qunsetenv("NOTIFY_SOCKET");
    EXPECT_EQ(signalsToTheEnd(), "started ended 0");
}

TEST_F(Launcher, ReportsWhatCannotRun)
{
    writeFile(mFolder, "text", "#!/no/such/interpreter\n");
    const QString text = mFolder.filePath(QStringLiteral("text"));
    for (const QString& program : {QString(), QStringLiteral("no-such-program"), text, mFolder.path()}) {
        expectMessageMatching(
            QtWarningMsg, QStringLiteral("The program \"%1\" was not started: there is no .+").arg(program));
        EXPECT_EQ(mLauncher->launch(program), 0);
    }
    QFile::setPermissions(text, QFile::ReadOwner | QFile::ExeOwner);
    expectMessageMatching(QtWarningMsg, QStringLiteral("The program .*/text\" was not started: .+"));
    mId = mLauncher->launch(text);
    EXPECT_EQ(signalsToTheEnd(), "failed");
}

TEST_F(Launcher, EndsItsChildrenWithItselfSilently)
{
    launchScript(Stubborn);
    const int process = waitForProcess();
    launchScript("exec sleep 60");
    const QDeadlineTimer deadline(20000);
    mLauncher.reset();
    EXPECT_FALSE(deadline.hasExpired());
    EXPECT_EQ(kill(process, 0), -1) << "the child is still there";
    EXPECT_EQ(mSignals, "");
}
