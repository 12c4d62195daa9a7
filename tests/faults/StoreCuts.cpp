// Cuts the store at every operation on the medium that a fixed script of writes makes, in every way that the
// medium may fail, and looks at what is there afterwards. With the argument --all at every one, without at a
// selection that is the same each time.
#include "Medium.h"
#include "StoreScript.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QMutexLocker>
#include <QTemporaryDir>
#include <QThread>
#include <cstdio>
#include <gtest/gtest.h>
#include <ostream>

#include <tests/support/FilesAndWaits.h>

namespace {

using namespace DataManager;

const char* const faultNames[FaultCount] = {
    "none", "error once", "full once", "error from here", "loses unsynced", "tears", "shuffles unsynced"};

/** Where files are made fastest; what reaches a medium is only simulated. */
const QString sMemory =
    QFileInfo(QStringLiteral("/dev/shm")).isWritable() ? QStringLiteral("/dev/shm") : QDir::tempPath();

/** The messages of all threads since the last look, for as long as it lives. One at a time. */
class Messages
{
public:
    Messages() : mFormer(qInstallMessageHandler(&keep)) {}
    ~Messages() { qInstallMessageHandler(mFormer); }
    Q_DISABLE_COPY(Messages)

    static bool have(const char* aText)
    {
        const QMutexLocker lock(&sMutex);
        return !sMessages.filter(QLatin1String(aText)).isEmpty();
    }
    static QStringList take()
    {
        const QMutexLocker lock(&sMutex);
        return std::exchange(sMessages, {});
    }

private:
    static void keep(QtMsgType aType, const QMessageLogContext&, const QString& aText)
    {
        const QMutexLocker lock(&sMutex);
        if (aType != QtInfoMsg || aText.contains(QLatin1String("is written again")))
            sMessages << aText;
    }

    static inline QMutex sMutex;
    static inline QStringList sMessages;
    const QtMessageHandler mFormer;
};

struct Script
{
    const char* name;
    const char* durability;
    std::function<std::vector<StoreStep>(const QString& aStore)> steps;
    int restartAfter; ///< step; the log of the first half is carried over then
    int stride;       ///< of the operations that are cut with --all
    int thinStride;   ///< without

    bool isFull() const { return qstrcmp(durability, "full") == 0; }
};

void PrintTo(const Script& aScript, std::ostream* aStream) { *aStream << aScript.name; }

/** One run of a script on a fresh medium with one fault. */
class ScriptRun
{
public:
    ScriptRun(const Script& aScript, const Medium::Plan& aPlan, bool aWaits) :
        mScript(aScript), mPlan(aPlan), mWaits(aWaits)
    {
        for (const char* folder : {"store", "image"})
            QDir(mFolder.path()).mkdir(QLatin1String(folder));
        HmiTest::writeFile(mFolder, "DataManagerConf.ini",
                           QByteArray("[Storage]\nDurability=") + aScript.durability);
        mPlan.image = path("image");
    }

    void check()
    {
        {
            Medium medium(path("store"));
            mMedium = &medium;
            medium.setPlan(mPlan);
            runScript();
            mHit = medium.isHit();
            mCounts[0] = medium.count(false);
            mCounts[1] = medium.count(true);
            // The power may as well go when all is done.
            if (isPowerCut() && !mHit)
                medium.cut(mPlan.fault, mPlan.image);
            mLow = lowestKept();
            mHigh =
                mPlan.fault >= Fault::ErrorFromHere && mHit ? qMin(medium.getProgress() + 1, last()) : last();
        }
        checkMessages();
        checkWhatIsLeft();
    }
    int count(bool aMainThread) const { return mCounts[aMainThread]; }
    bool isHit() const { return mHit; }

private:
    QString path(const char* aName) const { return mFolder.filePath(QLatin1String(aName)); }
    bool isPowerCut() const { return mPlan.fault >= Fault::LosesUnsynced; }
    int last() const { return int(mStates.size()) - 1; }

    int start(const QString& aFolder)
    {
        return StartUp(path("DataManagerConf.ini"),
                       {{QStringLiteral("Path"), aFolder + QStringLiteral("/hmi_settings.db")}});
    }

    void runScript()
    {
        const std::vector<StoreStep> steps = mScript.steps(path("store"));
        mStates.append(StoreState());
        start(path("store"));
        for (int i = 0; i < int(steps.size()); ++i) {
            runStep(steps[size_t(i)]);
            if (i + 1 == mScript.restartAfter) {
                ShutDown();
                start(path("store"));
            }
        }
        // In durability full the log is there before the step is.
        if (mPlan.fault == Fault::None && !mScript.isFull()) {
            EXPECT_TRUE(HmiTest::waitUntil([&] { return mMedium->getSyncedProgress() == last(); }))
                << "not everything reaches the medium by itself";
        }
        // Where the file was taken again before the end, that is without any help of the shutdown.
        if (mWaits && waitUntilWritten())
            mMedium->cut(mScript.isFull() ? Fault::LosesUnsynced : Fault::Tears, path("image"));
        ShutDown();
    }

    void runStep(const StoreStep& aStep)
    {
        const int code = aStep.act();
        StoreState state = mStates.last();
        if (mMedium->isHit() && mAttempted.isEmpty()) {
            mAttempted.append(state);
            aStep.effect(mAttempted.last());
        }
        if (code == Ok || (aStep.keptInMemory && (code == SqlError || code == DatabaseBusy)))
            aStep.effect(state);
        else
            EXPECT_NE(mPlan.fault, Fault::None) << qPrintable(aStep.name) << " failed";
        mStates.append(state);
        if (code == Ok)
            mLastOk = last();
        mMedium->setProgress(last());
        if (mPlan.fault > Fault::FullOnce && mMedium->isHit())
            return;
        const StoreState seen = StoreState::read();
        EXPECT_TRUE(seen == state) << "shown after " << qPrintable(aStep.name + state.difference(seen));
    }

    /** Whether there was an outage, and it ended by itself. */
    bool waitUntilWritten()
    {
        if (!Messages::have("cannot be written"))
            return false;
        EXPECT_TRUE(HmiTest::waitUntil([] { return Messages::have("is written again"); }));
        return mIsWrittenAgain = true;
    }

    /** The first of the states that may be left. */
    int lowestKept() const
    {
        if (mPlan.fault <= Fault::FullOnce || (isPowerCut() && !mHit))
            return last();
        if (mPlan.fault == Fault::ErrorFromHere)
            return mHit ? qMin(mLastOk, mMedium->getProgress()) : mLastOk;
        return mScript.isFull() ? mMedium->getProgress() : mMedium->getSyncedProgress();
    }

    /** One outage is told once, and nothing was damaged. */
    void checkMessages()
    {
        const QStringList messages = Messages::take();
        const int outages = messages.filter(QStringLiteral("cannot be written")).size();
        const bool isOnce = mPlan.fault <= Fault::FullOnce || mScript.restartAfter == 0;
        EXPECT_LE(outages, isOnce ? 1 : 2);
        EXPECT_TRUE(messages.filter(QStringLiteral("damaged")).isEmpty()) << HmiTest::joined(messages);
    }

    void checkWhatIsLeft()
    {
        const QString folder = isPowerCut() || mIsWrittenAgain ? path("image") : path("store");
        ASSERT_EQ(start(folder), Ok);
        const StoreState seen = StoreState::read();
        bool found = mPlan.fault >= Fault::ErrorFromHere && mAttempted.contains(seen);
        for (int i = mLow; i <= mHigh && !found; ++i)
            found = mStates.at(i) == seen;
        EXPECT_TRUE(found) << "none of the states " << mLow << " to " << mHigh << ", which differ in "
                           << qPrintable(mStates.at(mLow).difference(seen)) << " and "
                           << qPrintable(mStates.at(mHigh).difference(seen));
        EXPECT_EQ(Settings::setGlobalSetting(QStringLiteral("later"), 1), Ok);
        ShutDown();
        EXPECT_EQ(HmiTest::joined(Messages::take()), "");
        const QStringList odd = {QStringLiteral("*damaged*"), QStringLiteral("*.new*")};
        EXPECT_EQ(HmiTest::joined(QDir(folder).entryList(odd)), "");
    }

    const Script& mScript;
    Medium::Plan mPlan;
    const bool mWaits;
    const QTemporaryDir mFolder{sMemory + QStringLiteral("/store_cuts-XXXXXX")};
    Medium* mMedium = nullptr;
    QList<StoreState> mStates;    ///< the empty one, and after each step
    QList<StoreState> mAttempted; ///< what the step that was hit would have made
    int mLastOk = 0;
    bool mHit = false;
    bool mIsWrittenAgain = false;
    int mCounts[2] = {0, 0};
    int mLow = 0;
    int mHigh = 0;
};

class StoreCuts : public testing::TestWithParam<Script>
{
protected:
    // No bus: the announcements are no part of this.
    void SetUp() override { qputenv("DBUS_SYSTEM_BUS_ADDRESS", "unix:path=/nonexistent/bus"); }
    void TearDown() override { qunsetenv("DBUS_SYSTEM_BUS_ADDRESS"); }

    void cut(const Medium::Plan& aPlan)
    {
        SCOPED_TRACE(testing::Message()
                     << "operation " << aPlan.number << " of "
                     << (aPlan.mainThread ? "the caller, " : "the keeper, ") << faultNames[int(aPlan.fault)]);
        // One in so many, as it takes a second.
        const bool waits = aPlan.fault <= Fault::FullOnce && ++mOnce % (mAll ? 40 : 25) == 0;
        ScriptRun run(GetParam(), aPlan, waits);
        run.check();
        mCuts += run.isHit();
        mWaited += waits;
    }

    const bool mAll = QCoreApplication::arguments().contains(QStringLiteral("--all"));
    const Messages mMessages;
    int mCuts = 0;
    int mOnce = 0;
    int mWaited = 0;
};

TEST_P(StoreCuts, LeaveTheOldOrTheNewValues)
{
    ScriptRun whole(GetParam(), Medium::Plan(), false);
    whole.check();
    const int stride = mAll ? GetParam().stride : GetParam().thinStride;
    for (const bool mainThread : {true, false})
        for (int number = 1; number <= whole.count(mainThread); number += stride)
            for (int fault = 1; fault < FaultCount && !HasFailure(); ++fault)
                cut({Fault(fault), mainThread, number, {}});
    std::printf(
        "%s, %s: of %d operations of the caller and %d of the keeper of the log %d cuts, %d waited for\n",
        GetParam().name, GetParam().durability, whole.count(true), whole.count(false), mCuts, mWaited);
    EXPECT_GT(mCuts, 30);
}

std::vector<StoreStep> every(const QString&) { return everyOperation(); }

std::vector<StoreStep> overwritten(const QString&)
{
    return longLog(Scope::Global, 2200000, [] {});
}

/** For the keeper to have emptied the log, unless it fails. */
void waitForEmptyLog(const QString& aStore)
{
    QElapsedTimer timer;
    timer.start();
    while (QFileInfo(aStore + QStringLiteral("/hmi_settings.db-wal")).size() > 0 && !timer.hasExpired(300) &&
           !Medium::instance()->isHit())
        QThread::usleep(500);
}

std::vector<StoreStep> emptied(const QString& aStore)
{
    return longLog(Scope::Global, 4200000, [=] { waitForEmptyLog(aStore); });
}

const Script scripts[] = {{"EveryOperation", "full", every, 12, 1, 4},
                          {"EveryOperation", "normal", every, 12, 1, 4},
                          {"LongLog", "full", overwritten, 0, 197, 1501},
                          {"LongLog", "normal", emptied, 0, 197, 1501}};
INSTANTIATE_TEST_SUITE_P(, StoreCuts, testing::ValuesIn(scripts), [](const auto& aCase) {
    return aCase.param.name + std::string("In") + aCase.param.durability;
});

} // namespace
