#include "SettingsStores.h"

#include <KConfig>
#include <KConfigGroup>
#include <QHash>
#include <QSettings>
#include <QVariant>
#include <cstdio>
#include <cstdlib>
#include <sqlite3.h>

std::string nameOf(int aKey) { return "setting" + std::to_string(aKey); }

void SettingsStore::watch(const std::function<void(int)>&) { require(false, "watching this store"); }

void SettingsStore::fill(int aCount)
{
    beginBatch();
    for (int key = 0; key < aCount; ++key)
        set(key, 0);
    commitBatch();
}

namespace {

class Sqlite : public SettingsStore
{
public:
    Sqlite(const std::string& aFolder, bool aFull) : mSynchronous(aFull ? "FULL" : "NORMAL")
    {
        require(sqlite3_open((aFolder + "/raw.db").c_str(), &mDatabase) == SQLITE_OK, "opening the database");
        execute("PRAGMA page_size=1024");
        execute("PRAGMA journal_mode=WAL");
        execute("PRAGMA synchronous=" + mSynchronous);
        execute("CREATE TABLE IF NOT EXISTS setting(owner INTEGER NOT NULL, id TEXT NOT NULL, "
                "type INTEGER NOT NULL, value, PRIMARY KEY(owner, id)) WITHOUT ROWID");
    }

    ~Sqlite() override
    {
        sqlite3_finalize(mUpsert);
        sqlite3_close(mDatabase);
    }

    void set(int aKey, int aValue) override
    {
        if (!mUpsert)
            prepareToWrite();
        const std::string name = nameOf(aKey);
        sqlite3_bind_text(mUpsert, 1, name.data(), static_cast<int>(name.size()), SQLITE_STATIC);
        sqlite3_bind_int(mUpsert, 2, aValue);
        require(sqlite3_step(mUpsert) == SQLITE_DONE, "writing to the database");
        sqlite3_reset(mUpsert);
    }

    void beginBatch() override
    {
        if (!mUpsert)
            prepareToWrite();
        execute("BEGIN IMMEDIATE");
    }

    void commitBatch() override { execute("COMMIT"); }

    void tidy() override
    {
        if (mLogPages > LogPages - Margin)
            restartLog();
    }

    int readAll() override
    {
        sqlite3_stmt* select = nullptr;
        prepare("SELECT id, value FROM setting", &select);
        while (sqlite3_step(select) == SQLITE_ROW)
            mValues.insert(QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(select, 0)),
                                             sqlite3_column_bytes(select, 0)),
                           sqlite3_column_int(select, 1));
        sqlite3_finalize(select);
        return mValues.size();
    }

private:
    static constexpr int LogPages = 1024;
    static constexpr int Margin = 64;

    void prepareToWrite()
    {
        // Instead of the checkpoints that a write makes.
        sqlite3_wal_hook(mDatabase, &Sqlite::noteLogPages, this);
        prepare("INSERT INTO setting VALUES(0, ?1, 1, ?2) "
                "ON CONFLICT DO UPDATE SET type = excluded.type, value = excluded.value",
                &mUpsert);
        execute("PRAGMA synchronous=OFF");
        for (int value = 0; mLogPages < LogPages; ++value)
            set(0, value);
        execute("PRAGMA synchronous=" + mSynchronous);
        restartLog();
    }

    static int noteLogPages(void* aStore, sqlite3*, const char*, int aPages)
    {
        static_cast<Sqlite*>(aStore)->mLogPages = aPages;
        return SQLITE_OK;
    }

    void execute(const std::string& aSql)
    {
        require(sqlite3_exec(mDatabase, aSql.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK, aSql.c_str());
    }

    void prepare(const char* aSql, sqlite3_stmt** aStatement)
    {
        require(sqlite3_prepare_v2(mDatabase, aSql, -1, aStatement, nullptr) == SQLITE_OK, aSql);
    }

    void restartLog()
    {
        execute("PRAGMA wal_checkpoint(RESTART)");
        mLogPages = 0;
    }

    const std::string mSynchronous;
    sqlite3* mDatabase = nullptr;
    sqlite3_stmt* mUpsert = nullptr;
    int mLogPages = 0;
    QHash<QString, QVariant> mValues;
};

class QSettingsStore : public SettingsStore
{
public:
    explicit QSettingsStore(const std::string& aFolder) :
        mSettings(QString::fromStdString(aFolder + "/qsettings.ini"), QSettings::IniFormat)
    {}

    void set(int aKey, int aValue) override
    {
        mSettings.setValue(QString::fromStdString(nameOf(aKey)), aValue);
    }

    void sync() override
    {
        mSettings.sync();
        require(mSettings.status() == QSettings::NoError, "syncing QSettings");
    }

    int readAll() override
    {
        const QStringList keys = mSettings.allKeys();
        for (const QString& key : keys)
            mValues.insert(key, mSettings.value(key));
        return mValues.size();
    }

private:
    QSettings mSettings;
    QHash<QString, QVariant> mValues;
};

class KConfigStore : public SettingsStore
{
public:
    explicit KConfigStore(const std::string& aFolder) :
        mConfig(QString::fromStdString(aFolder + "/kconfigrc"), KConfig::SimpleConfig),
        mGroup(&mConfig, QStringLiteral("Settings"))
    {}

    void set(int aKey, int aValue) override { mGroup.writeEntry(nameOf(aKey).c_str(), aValue); }
    void sync() override { require(mConfig.sync(), "syncing KConfig"); }

    int readAll() override
    {
        const QStringList keys = mGroup.keyList();
        for (const QString& key : keys)
            mValues.insert(key, mGroup.readEntry(key, -1));
        return mValues.size();
    }

private:
    KConfig mConfig;
    KConfigGroup mGroup;
    QHash<QString, QVariant> mValues;
};

} // namespace

std::unique_ptr<SettingsStore> openStore(const std::string& aKind, const std::string& aFolder, bool aFull)
{
    if (aKind == "Sqlite")
        return std::make_unique<Sqlite>(aFolder, aFull);
    if (aKind == "QSettings")
        return std::make_unique<QSettingsStore>(aFolder);
    if (aKind == "KConfig")
        return std::make_unique<KConfigStore>(aFolder);
    return aKind == "DConf" ? openDConf() : openOwn(aFolder, aFull, aKind == "Setting");
}
