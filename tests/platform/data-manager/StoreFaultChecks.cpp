#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QThread>
#include <QVector>
#include <algorithm>
#include <atomic>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <ostream>
#include <sqlite3.h>
#include <thread>

#include <platform/data-manager/DataManager.h>
#include <tests/support/ExpectedMessages.h>
#include <tests/support/FaultyDisk.h>
#include <tests/support/FilesAndWaits.h>

namespace {

using namespace DataManager;
using HmiTest::FaultyDisk;

const QString sStore = QStringLiteral("hmi_settings.db");

int start(const QTemporaryDir& aFolder, const QHash<QString, QString>& aParameters = {})
{
    HmiTest::writeFile(aFolder, "DataManagerConf.ini", "[Storage]\n");
    return StartUp(aFolder.filePath(QStringLiteral("DataManagerConf.ini")), aParameters);
}

template <class T>
T stored(const QString& aId)
{
    T value = {};
    Settings::getGlobalSetting(aId, value);
    return value;
}

/** Large, so that the store has to grow for it, and found in the file by what it starts with. */
QString longText(const QString& aStart) { return aStart + QString(20000, QLatin1Char('x')); }

/** A connection of another program. */
class Connection
{
public:
    explicit Connection(const QString& aPath)
    {
        sqlite3_open(QFile::encodeName(aPath).constData(), &mDatabase);
    }
    ~Connection() { sqlite3_close(mDatabase); }
    Q_DISABLE_COPY(Connection)

    /** The first value of the result, "" when there is none, or the error. */
    std::string run(const char* aStatement)
    {
        std::string result;
        const auto takeFirst = [](void* aResult, int, char** aTexts, char**) {
            static_cast<std::string*>(aResult)->append(aTexts[0]);
            return 0;
        };
        const int code = sqlite3_exec(mDatabase, aStatement, takeFirst, &result, nullptr);
        return code == SQLITE_OK ? result : sqlite3_errmsg(mDatabase);
    }

private:
    sqlite3* mDatabase = nullptr;
};

class StoreFaults : public testing::Test
{
protected:
    void SetUp() override { ASSERT_FALSE(IsStarted()); }
    void TearDown() override { ShutDown(); }

    QString path(const QString& aName = sStore) const { return mFolder.filePath(aName); }

    static void expectReport()
    {
        HmiTest::expectMessageMatching(QtCriticalMsg, QStringLiteral(".*hmi_settings\\.db.*"));
    }

    const QTemporaryDir mFolder;
    FaultyDisk mDisk{mFolder.path()};
};

TEST_F(StoreFaults, LeaveTheDatabaseOfAnotherProgramAlone)
{
    EXPECT_EQ(Connection(path()).run("CREATE TABLE song(title)"), "");
    const QByteArray before = HmiTest::readFile(path());
    expectReport();
    EXPECT_EQ(start(mFolder), Ok);
    EXPECT_EQ(Settings::setGlobalSetting(QStringLiteral("id"), 1), SqlError);
    EXPECT_EQ(stored<int>(QStringLiteral("id")), 1);
    ShutDown();
    EXPECT_TRUE(HmiTest::readFile(path()) == before);
    EXPECT_FALSE(QFile::exists(path(QStringLiteral("hmi_settings.db.damaged-1"))));
}

TEST_F(StoreFaults, LeaveTheStoreOfANewerVersionAlone)
{
    ASSERT_EQ(start(mFolder), Ok);
    EXPECT_EQ(Settings::setGlobalSetting(QStringLiteral("id"), 1), Ok);
    ShutDown();
    EXPECT_EQ(Connection(path()).run("PRAGMA user_version=1000"), "");
    const QByteArray before = HmiTest::readFile(path());
    expectReport();
    EXPECT_EQ(start(mFolder), Ok);
    EXPECT_EQ(Settings::setGlobalSetting(QStringLiteral("id"), 2), SqlError);
    EXPECT_EQ(stored<int>(QStringLiteral("id")), 2);
    ShutDown();
    EXPECT_TRUE(HmiTest::readFile(path()) == before);
}

TEST_F(StoreFaults, GiveWayToWhatAnotherProcessWroteMeanwhile)
{
    ASSERT_EQ(start(mFolder), Ok);
    const QString both = QStringLiteral("both"), mine = QStringLiteral("mine");
    EXPECT_EQ(Settings::setGlobalSetting(both, 1), Ok);
    Connection other(path());
    EXPECT_EQ(other.run("BEGIN IMMEDIATE"), "");
    expectReport();
    EXPECT_EQ(Settings::setGlobalSetting(both, 2), DatabaseBusy);
    EXPECT_EQ(Settings::setGlobalSetting(mine, 5), DatabaseBusy);
    EXPECT_EQ(stored<int>(both), 2);
    EXPECT_EQ(other.run("UPDATE setting SET value = 3 WHERE id = 'both'; COMMIT"), "");
    EXPECT_TRUE(
        HmiTest::waitUntil([&] { return other.run("SELECT value FROM setting WHERE id = 'mine'") == "5"; }));
    EXPECT_EQ(other.run("SELECT value FROM setting WHERE id = 'both'"), "3")
        << "it was acknowledged, and later";
    EXPECT_EQ(stored<int>(both), 3);
}

// Power cuts

struct PowerCutCase
{
    const char* durability;
    qint64 slack; ///< nanoseconds before the cut whose writes may be lost
    quint32 seed;
};

void PrintTo(const PowerCutCase& aCase, std::ostream* aStream) { *aStream << aCase.durability; }

class StorePowerCuts : public StoreFaults, public testing::WithParamInterface<PowerCutCase>
{
protected:
    struct Acknowledged
    {
        qint64 time;
        int value;
    };
    struct Cut
    {
        qint64 time;
        QString folder; ///< in the folder of the store
    };

    /** On a thread of its own, so that cuts meet every moment of a write, the start and the shutdown. */
    void cutAgainAndAgain()
    {
        QRandomGenerator random(GetParam().seed);
        while (!mDone && mCuts.size() < 150) {
            QThread::usleep(random.bounded(50000));
            cut(mTimer.nsecsElapsed() - GetParam().slack, random.generate());
        }
    }

    void cut(qint64 aTime, quint32 aSeed)
    {
        mCuts.append({aTime, QStringLiteral("cut%1/").arg(mCuts.size())});
        ASSERT_TRUE(QDir().mkpath(path(mCuts.last().folder)));
        mDisk.powerCut(path(mCuts.last().folder), aSeed);
    }

    /** First bursts that restart the log several times, then so little that only time can sync it; every
     * value is the greatest so far under its key. */
    void writeForAWhile()
    {
        QRandomGenerator random(GetParam().seed);
        while (mTimer.elapsed() < 1700) {
            for (quint32 left = mTimer.elapsed() < 1000 ? random.bounded(60) : 1; left > 0; --left)
                write(int(mAcknowledged.size()) + 1);
            const qint64 end = mTimer.elapsed() + random.bounded(20);
            HmiTest::waitUntil([&] { return mTimer.elapsed() >= end; });
        }
    }

    void write(int aValue)
    {
        const bool isBatch = aValue % 4 == 0;
        int code = isBatch ? beginBatch() : Ok;
        code |= Settings::setGlobalSetting(keyOf(aValue), aValue);
        if (isBatch) {
            code |= Settings::setGlobalSetting(QStringLiteral("ballast"),
                                               QString::number(aValue).repeated(10000));
            code |= Settings::setUserSetting(keyOf(aValue), aValue);
            code |= commitBatch();
        }
        EXPECT_EQ(code, Ok);
        mAcknowledged.append({mTimer.nsecsElapsed(), aValue});
    }

    /** Single writes and batches have keys of their own. */
    static QString keyOf(int aValue) { return QString::number(aValue % 20); }

    void expectSound(const Cut& aCut)
    {
        const QString store = aCut.folder + sStore;
        ASSERT_EQ(start(mFolder, {{QStringLiteral("Path"), store}}), Ok);
        EXPECT_EQ(Connection(path(store)).run("PRAGMA integrity_check"), "ok");
        for (const Acknowledged& write : newestBefore(aCut.time))
            EXPECT_GE(stored<int>(keyOf(write.value)), write.value);
        for (int key = 0; key < 20; key += 4) {
            int second = 0;
            Settings::getUserSetting(keyOf(key), second);
            EXPECT_EQ(stored<int>(keyOf(key)), second) << "half a batch";
        }
        EXPECT_EQ(ShutDown(), Ok);
        EXPECT_TRUE(QDir(path(aCut.folder)).entryList({QStringLiteral("*damaged*")}).isEmpty());
    }

    /** The last value of each key; keys take turns. */
    QVector<Acknowledged> newestBefore(qint64 aTime) const
    {
        const auto isLater = [](qint64 time, const Acknowledged& write) { return time < write.time; };
        const auto end = std::upper_bound(mAcknowledged.begin(), mAcknowledged.end(), aTime, isLater);
        const int count = int(end - mAcknowledged.begin());
        return mAcknowledged.mid(qMax(0, count - 20), qMin(20, count));
    }

    QElapsedTimer mTimer;
    QVector<Acknowledged> mAcknowledged;
    QVector<Cut> mCuts;
    std::atomic<bool> mDone = false;
};

TEST_P(StorePowerCuts, LoseNoMoreThanTheDurabilityAllows)
{
    mTimer.start();
    std::thread cutter([this] { cutAgainAndAgain(); });
    const QString durability = QString::fromLatin1(GetParam().durability);
    EXPECT_EQ(start(mFolder, {{QStringLiteral("Durability"), durability}}), Ok);
    writeForAWhile();
    EXPECT_EQ(ShutDown(), Ok);
    mDone = true;
    cutter.join();
    cut(mTimer.nsecsElapsed(), GetParam().seed);
    for (int i = 0; i < mCuts.size() && !HasFailure(); ++i) {
        SCOPED_TRACE(mCuts.at(i).time);
        expectSound(mCuts.at(i));
    }
}

const PowerCutCase powerCutCases[] = {
    {"full", 0, 1}, {"full", 0, 2}, {"normal", 500000000, 1}, {"normal", 500000000, 2}};
INSTANTIATE_TEST_SUITE_P(, StorePowerCuts, testing::ValuesIn(powerCutCases), [](const auto& aCase) {
    return aCase.param.durability + std::to_string(aCase.param.seed);
});

// Damage

QByteArray noise(int aCount)
{
    QRandomGenerator random(7);
    QByteArray bytes(aCount, '\0');
    for (char& byte : bytes)
        byte = char(random.bounded(256));
    return bytes;
}

struct Damage
{
    const char* name;
    std::function<QByteArray(const QByteArray&)> content; ///< none: a folder stands in its place
};

void PrintTo(const Damage& aCase, std::ostream* aStream) { *aStream << aCase.name; }

class DamagedStore : public StoreFaults, public testing::WithParamInterface<Damage>
{
protected:
    /** A database that is damaged, with the log of a killed process beside it. */
    void makeDamagedStore()
    {
        QTemporaryDir other;
        ASSERT_EQ(start(other), Ok);
        for (int i = 0; i < 20; ++i)
            Settings::setGlobalSetting(QString::number(i), longText(QString()));
        ShutDown();
        ASSERT_EQ(start(other), Ok);
        Settings::setGlobalSetting(QStringLiteral("late"), 1);
        const QByteArray sound = HmiTest::readFile(other.filePath(sStore));
        HmiTest::writeFile(mFolder, "hmi_settings.db-wal",
                           HmiTest::readFile(other.filePath(sStore + QStringLiteral("-wal"))));
        ShutDown();
        if (GetParam().content)
            HmiTest::writeFile(mFolder, "hmi_settings.db", GetParam().content(sound));
        else
            ASSERT_TRUE(QDir().mkpath(path() + QStringLiteral("/inner")));
    }
};

TEST_P(DamagedStore, IsSetAsideAndANewOneWorks)
{
    for (const QString& aside :
         {QStringLiteral("hmi_settings.db.damaged-1"), QStringLiteral("hmi_settings.db.damaged-2")}) {
        makeDamagedStore();
        const QByteArray damaged = HmiTest::readFile(path());
        expectReport();
        ASSERT_EQ(start(mFolder), Ok);
        EXPECT_TRUE(QFile::exists(path(aside)));
        EXPECT_TRUE(HmiTest::readFile(path(aside)) == damaged) << "changed before it was set aside";
        EXPECT_EQ(stored<int>(QStringLiteral("late")), 0);
        EXPECT_EQ(Settings::setGlobalSetting(QStringLiteral("new"), 2), Ok);
        ShutDown();
        ASSERT_EQ(start(mFolder), Ok);
        EXPECT_EQ(stored<int>(QStringLiteral("new")), 2);
        ShutDown();
        ASSERT_TRUE(QFile::remove(path()));
    }
}

const Damage damages[] = {
    {"CutToAHalf", [](const QByteArray& aContent) { return aContent.left(aContent.size() / 2); }},
    {"CutToAHundredBytes", [](const QByteArray& aContent) { return aContent.left(100); }},
    {"Emptied", [](const QByteArray&) { return QByteArray(); }},
    {"Noise", [](const QByteArray& aContent) { return noise(aContent.size()); }},
    {"NoiseAfterTheFirstPage",
     [](const QByteArray& aContent) { return aContent.left(4096) + noise(aContent.size() - 4096); }},
    {"AFolder", nullptr}};
INSTANTIATE_TEST_SUITE_P(, DamagedStore, testing::ValuesIn(damages),
                         [](const auto& aCase) { return aCase.param.name; });

// Outages

enum class Fault { ReadOnly, Full, Locked, NoFolder };

struct Outage
{
    const char* name;
    Fault fault;
    int code;          ///< of a write meanwhile
    bool fromTheStart; ///< or after it
    bool afterKill;    ///< what is stored is in the log still
};

void PrintTo(const Outage& aCase, std::ostream* aStream) { *aStream << aCase.name; }

class StoreOutages : public StoreFaults, public testing::WithParamInterface<Outage>
{
protected:
    int startStore() const
    {
        return start(mFolder, {{QStringLiteral("Path"), QStringLiteral("inner/hmi_settings.db")}});
    }

    void makeStore()
    {
        QTemporaryDir other;
        ASSERT_EQ(start(other), Ok);
        Settings::setGlobalSetting(QStringLiteral("kept"), 1);
        if (!GetParam().afterKill)
            ShutDown();
        ASSERT_TRUE(QDir().mkpath(path(QStringLiteral("inner"))));
        for (const QString& file : {sStore, sStore + QStringLiteral("-wal")})
            QFile::copy(other.filePath(file), path(QStringLiteral("inner/") + file));
        ShutDown();
    }

    void setFault(bool aOn)
    {
        const QString folder = path(QStringLiteral("inner"));
        if (GetParam().fault == Fault::ReadOnly)
            mDisk.setReadOnly(aOn);
        else if (GetParam().fault == Fault::Full)
            mDisk.setQuota(aOn ? 0 : -1);
        else if (GetParam().fault == Fault::NoFolder)
            ASSERT_TRUE(aOn ? QFile(folder).open(QFile::WriteOnly) : QFile::remove(folder));
        else if (!aOn)
            mOther.reset();
        else
            ASSERT_EQ((mOther = std::make_unique<Connection>(mStore))->run("BEGIN IMMEDIATE"), "");
    }

    void writeDuringTheFault(int aRound, const QString& aText)
    {
        EXPECT_EQ(Settings::setGlobalSetting(QStringLiteral("late"), aText), GetParam().code);
        EXPECT_EQ(Settings::setGlobalSetting(QStringLiteral("kept"), aRound + 1), GetParam().code);
        EXPECT_EQ(stored<QString>(QStringLiteral("late")), aText);
        EXPECT_EQ(stored<int>(QStringLiteral("kept")), aRound + 1);
    }

    /** In the file, wherever SQLite keeps it. */
    bool isInTheFile(const QString& aText) const
    {
        return (HmiTest::readFile(mStore) + HmiTest::readFile(mStore + QStringLiteral("-wal")))
            .contains(aText.left(20).toUtf8());
    }

    const QString mStore = path(QStringLiteral("inner/hmi_settings.db"));
    std::unique_ptr<Connection> mOther;
};

/** The first outage ends by itself, the second with the shutdown. */
TEST_P(StoreOutages, AreBridgedFromMemoryAndReportedOnceEach)
{
    const int rounds = GetParam().fault == Fault::NoFolder ? 1 : 2;
    if (GetParam().fault != Fault::NoFolder)
        makeStore();
    EXPECT_EQ(GetParam().fromTheStart ? Ok : startStore(), Ok);
    QString text;
    for (int round = 1; round <= rounds; ++round) {
        text = longText(QStringLiteral("written in round %1:").arg(round));
        setFault(true);
        expectReport();
        EXPECT_EQ(IsStarted() ? Ok : startStore(), Ok);
        EXPECT_EQ(stored<int>(QStringLiteral("kept")), rounds == 1 ? 0 : round);
        int none = 0;
        EXPECT_EQ(Settings::getGlobalSetting(QStringLiteral("none"), none),
                  rounds == 1 ? int(SqlError) : int(SettingNotFound))
            << "what could not be read is not missing";
        writeDuringTheFault(round, text);
        setFault(false);
        EXPECT_TRUE(round == 2 || HmiTest::waitUntil([&] { return isInTheFile(text); }));
    }
    ShutDown();
    ASSERT_EQ(startStore(), Ok);
    EXPECT_EQ(stored<QString>(QStringLiteral("late")), text);
    EXPECT_EQ(stored<int>(QStringLiteral("kept")), rounds + 1);
}

const Outage outages[] = {{"ReadOnly", Fault::ReadOnly, SqlError, false, false},
                          {"ReadOnlyFromTheStart", Fault::ReadOnly, SqlError, true, false},
                          {"ReadOnlyFromTheStartAfterAKill", Fault::ReadOnly, SqlError, true, true},
                          {"Full", Fault::Full, SqlError, false, false},
                          {"FullFromTheStart", Fault::Full, SqlError, true, false},
                          {"FullFromTheStartAfterAKill", Fault::Full, SqlError, true, true},
                          {"Locked", Fault::Locked, DatabaseBusy, false, false},
                          {"LockedFromTheStart", Fault::Locked, DatabaseBusy, true, false},
                          {"NoFolderFromTheStart", Fault::NoFolder, SqlError, true, false}};
INSTANTIATE_TEST_SUITE_P(, StoreOutages, testing::ValuesIn(outages),
                         [](const auto& aCase) { return aCase.param.name; });

} // namespace
