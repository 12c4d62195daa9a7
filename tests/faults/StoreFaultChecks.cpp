#include "Medium.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <ostream>
#include <sqlite3.h>

#include <platform/data-manager/DataManager.h>
#include <tests/support/ExpectedMessages.h>
#include <tests/support/FilesAndWaits.h>

namespace {

using namespace DataManager;

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

// Somebody else's hands

struct Displacement
{
    const char* name;
    std::function<void(const QString& aStore)> act;
    bool isShutDown; ///< right after the next write, without any time to notice
};

void PrintTo(const Displacement& aCase, std::ostream* aStream) { *aStream << aCase.name; }

class DisplacedStore : public StoreFaults, public testing::WithParamInterface<Displacement>
{};

TEST_P(DisplacedStore, IsWrittenAnewFromMemory)
{
    const QString before = QStringLiteral("before"), after = QStringLiteral("after");
    ASSERT_EQ(start(mFolder), Ok);
    EXPECT_EQ(Settings::setGlobalSetting(before, 1), Ok);
    GetParam().act(path());
    HmiTest::expectMessageMatching(QtWarningMsg,
                                   QStringLiteral(".*hmi_settings\\.db' was moved or removed.*"));
    EXPECT_EQ(Settings::setGlobalSetting(after, 2), Ok);
    const auto isWritten = [&] {
        return QFile::exists(path()) &&
               Connection(path()).run("SELECT value FROM setting WHERE id = 'after'") == "2";
    };
    EXPECT_TRUE(GetParam().isShutDown || HmiTest::waitUntil(isWritten));
    EXPECT_EQ(Settings::setGlobalSetting(QStringLiteral("last"), 3), Ok);
    ShutDown();
    ASSERT_EQ(start(mFolder), Ok);
    for (const auto& [id, value] : {std::pair(before, 1), {after, 2}, {QStringLiteral("last"), 3}})
        EXPECT_EQ(stored<int>(id), value) << qPrintable(id);
}

void removeStore(const QString& aStore) { ASSERT_TRUE(QFile::remove(aStore)); }
void moveStore(const QString& aStore)
{
    ASSERT_TRUE(QFile::rename(aStore, aStore + QStringLiteral(".away")));
}
void replaceStore(const QString& aStore)
{
    QFile::copy(aStore, aStore + QStringLiteral(".copy"));
    removeStore(aStore);
    ASSERT_TRUE(QFile::rename(aStore + QStringLiteral(".copy"), aStore));
}

const Displacement displacements[] = {{"Removed", &removeStore, false},
                                      {"RemovedBeforeTheShutdown", &removeStore, true},
                                      {"Moved", &moveStore, false},
                                      {"Replaced", &replaceStore, false}};
INSTANTIATE_TEST_SUITE_P(, DisplacedStore, testing::ValuesIn(displacements),
                         [](const auto& aCase) { return aCase.param.name; });

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

enum class Cause { ReadOnly, Full, Locked, NoFolder };

struct Outage
{
    const char* name;
    Cause cause;
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

    void setOutage(bool aOn)
    {
        const QString folder = path(QStringLiteral("inner"));
        if (GetParam().cause == Cause::ReadOnly)
            mDisk.setReadOnly(aOn);
        else if (GetParam().cause == Cause::Full)
            mDisk.setFull(aOn);
        else if (GetParam().cause == Cause::NoFolder)
            ASSERT_TRUE(aOn ? QFile(folder).open(QFile::WriteOnly) : QFile::remove(folder));
        else if (!aOn)
            mOther.reset();
        else
            ASSERT_EQ((mOther = std::make_unique<Connection>(mStore))->run("BEGIN IMMEDIATE"), "");
    }

    void writeMeanwhile(int aRound, const QString& aText)
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
    Medium mDisk{path(QStringLiteral("inner/"))};
    std::unique_ptr<Connection> mOther;
};

/** The first outage ends by itself, the second with the shutdown. */
TEST_P(StoreOutages, AreBridgedFromMemoryAndReportedOnceEach)
{
    const int rounds = GetParam().cause == Cause::NoFolder ? 1 : 2;
    if (GetParam().cause != Cause::NoFolder)
        makeStore();
    EXPECT_EQ(GetParam().fromTheStart ? Ok : startStore(), Ok);
    QString text;
    for (int round = 1; round <= rounds; ++round) {
        text = longText(QStringLiteral("written in round %1:").arg(round));
        setOutage(true);
        expectReport();
        EXPECT_EQ(IsStarted() ? Ok : startStore(), Ok);
        EXPECT_EQ(stored<int>(QStringLiteral("kept")), rounds == 1 ? 0 : round);
        int none = 0;
        EXPECT_EQ(Settings::getGlobalSetting(QStringLiteral("none"), none),
                  rounds == 1 ? int(SqlError) : int(SettingNotFound))
            << "what could not be read is not missing";
        writeMeanwhile(round, text);
        setOutage(false);
        EXPECT_TRUE(round == 2 || HmiTest::waitUntil([&] { return isInTheFile(text); }));
    }
    ShutDown();
    ASSERT_EQ(startStore(), Ok);
    EXPECT_EQ(stored<QString>(QStringLiteral("late")), text);
    EXPECT_EQ(stored<int>(QStringLiteral("kept")), rounds + 1);
}

const Outage outages[] = {{"ReadOnly", Cause::ReadOnly, SqlError, false, false},
                          {"ReadOnlyFromTheStart", Cause::ReadOnly, SqlError, true, false},
                          {"ReadOnlyFromTheStartAfterAKill", Cause::ReadOnly, SqlError, true, true},
                          {"Full", Cause::Full, SqlError, false, false},
                          {"FullFromTheStart", Cause::Full, SqlError, true, false},
                          {"FullFromTheStartAfterAKill", Cause::Full, SqlError, true, true},
                          {"Locked", Cause::Locked, DatabaseBusy, false, false},
                          {"LockedFromTheStart", Cause::Locked, DatabaseBusy, true, false},
                          {"NoFolderFromTheStart", Cause::NoFolder, SqlError, true, false}};
INSTANTIATE_TEST_SUITE_P(, StoreOutages, testing::ValuesIn(outages),
                         [](const auto& aCase) { return aCase.param.name; });

} // namespace
