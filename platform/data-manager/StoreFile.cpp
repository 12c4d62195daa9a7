#include <platform/data-manager/StoreFile.h>

#include <limits>
#include <optional>

#include <platform/data-manager/DataManager.h>

namespace DataManager {

/** How long opening may wait for another process that makes or recovers the file, in milliseconds. */
static constexpr int OpeningTimeout = 2000;

/** More than a head unit has; growing step by step takes longer. */
static constexpr int ManySettings = 1000;

int StoreFile::makeLayout(SqliteConnection& aConnection)
{
    const QByteArray sql =
        QStringLiteral("PRAGMA page_size=%7; PRAGMA application_id=%1;"
                       "PRAGMA journal_mode=MEMORY; PRAGMA synchronous=FULL;"
                       "BEGIN;"
                       "CREATE TABLE profile(id INTEGER PRIMARY KEY AUTOINCREMENT, name TEXT NOT NULL UNIQUE,"
                       " active INTEGER NOT NULL DEFAULT 0);"
                       "CREATE TABLE setting(owner INTEGER NOT NULL, id TEXT NOT NULL, type INTEGER NOT NULL,"
                       " value, PRIMARY KEY(owner, id)) WITHOUT ROWID;"
                       "INSERT INTO profile(id, name, active) VALUES(%2, '%3', 0), (%4, '%5', 1);"
                       "PRAGMA user_version=%6;"
                       "COMMIT; PRAGMA journal_mode=WAL")
            .arg(ApplicationId)
            .arg(BuiltInProfileId)
            .arg(builtInProfile())
            .arg(DefaultUserProfileId)
            .arg(defaultUserProfile())
            .arg(LayoutVersion)
            .arg(PageSize)
            .toUtf8();
    return aConnection.execute(sql.constData());
}

int StoreFile::configure(Durability aDurability)
{
    const char* const synchronous =
        aDurability == Durability::Full ? "PRAGMA synchronous=FULL" : "PRAGMA synchronous=OFF";
    const int code = mConnection.execute(synchronous);
    return code != SQLITE_OK ? code
                             : mConnection.execute("PRAGMA wal_autocheckpoint=0; PRAGMA cell_size_check=ON;"
                                                   "PRAGMA secure_delete=ON; PRAGMA journal_mode=WAL");
}

int StoreFile::check(QString& aWhy)
{
    const qint64 id = mConnection.number("PRAGMA application_id", -1);
    const qint64 version = mConnection.number("PRAGMA user_version", -1);
    if (id == -1 || version == -1) {
        aWhy = mConnection.message();
        return sqlite3_errcode(mConnection.handle());
    }
    if (id != ApplicationId) {
        aWhy = QStringLiteral("it is the database of another program");
        return SQLITE_CANTOPEN;
    }
    if (version > LayoutVersion) {
        aWhy = QStringLiteral("a newer version of this software wrote it");
        return SQLITE_CANTOPEN;
    }
    if (mConnection.isReadOnly()) {
        aWhy = QStringLiteral("it may only be read");
        return SQLITE_READONLY;
    }
    return SQLITE_OK;
}

int StoreFile::open(const QString& aPath, Durability aDurability, QString& aWhy)
{
    int code = mConnection.open(aPath, SQLITE_OPEN_READWRITE);
    if (code != SQLITE_OK) {
        aWhy = QString::fromUtf8(sqlite3_errstr(code));
        return code;
    }
    mConnection.setBusyTimeout(OpeningTimeout);
    // Checkpoints would wait for the medium; the last one, at closing, is the keeper's too.
    sqlite3_db_config(mConnection.handle(), SQLITE_DBCONFIG_NO_CKPT_ON_CLOSE, 1, nullptr);
    // Before anything is set: what is no store is left as it is.
    code = check(aWhy);
    if (code == SQLITE_OK)
        code = configure(aDurability);
    if (code != SQLITE_OK) {
        if (aWhy.isEmpty())
            aWhy = mConnection.message();
        close();
        return code;
    }
    mConnection.setBusyTimeout(BusyTimeout);
    mVersion = mConnection.prepare("PRAGMA data_version");
    return SQLITE_OK;
}

/** On the first write: to start means to read. */
void StoreFile::prepareToWrite()
{
    mWrite = mConnection.prepare("INSERT INTO setting(owner, id, type, value) VALUES(?1, ?2, ?3, ?4)"
                                 " ON CONFLICT DO UPDATE SET type = excluded.type, value = excluded.value");
    mWriteOfProfile =
        mConnection.prepare("INSERT INTO setting(owner, id, type, value) SELECT ?1, ?2, ?3, ?4"
                            " WHERE EXISTS(SELECT 1 FROM profile WHERE profile.id = ?1)"
                            " ON CONFLICT DO UPDATE SET type = excluded.type, value = excluded.value");
    mBegin = mConnection.prepare("BEGIN IMMEDIATE");
    mCommit = mConnection.prepare("COMMIT");
}

int StoreFile::begin()
{
    if (!mBegin.isValid())
        prepareToWrite();
    return mBegin.run();
}

void StoreFile::close()
{
    for (SqliteStatement* statement : {&mVersion, &mWrite, &mWriteOfProfile, &mBegin, &mCommit})
        *statement = SqliteStatement();
    mConnection.close();
}

static std::optional<Value> readValue(const SqliteStatement& aRow, int aTypeColumn, int aColumn)
{
    const int stored = aRow.type(aColumn);
    const qint64 type = aRow.number(aTypeColumn);
    if (type == 0 && stored == SQLITE_INTEGER)
        return aRow.number(aColumn) != 0;
    if (type == 1 && stored == SQLITE_INTEGER &&
        aRow.number(aColumn) == static_cast<int>(aRow.number(aColumn)))
        return static_cast<int>(aRow.number(aColumn));
    if (type == 2 && stored == SQLITE_FLOAT)
        return aRow.real(aColumn);
    // SQLite keeps no number that is none.
    if (type == 2 && stored == SQLITE_NULL)
        return std::numeric_limits<double>::quiet_NaN();
    if (type == 3 && stored == SQLITE_TEXT)
        return aRow.text(aColumn);
    if (type == 4 && stored == SQLITE_BLOB)
        return aRow.bytes(aColumn);
    return std::nullopt;
}

int StoreFile::loadProfiles(StoreContent& aContent)
{
    SqliteStatement rows = mConnection.prepare("SELECT id, name, active FROM profile ORDER BY id");
    if (!rows.isValid())
        return sqlite3_errcode(mConnection.handle());
    while (rows.next()) {
        aContent.profiles.push_back({rows.number(0), rows.text(1)});
        if (rows.number(2) != 0)
            aContent.activeProfile = rows.number(0);
    }
    return rows.reset();
}

int StoreFile::loadSettings(StoreContent& aContent)
{
    aContent.settings.reserve(ManySettings);
    SqliteStatement rows = mConnection.prepare("SELECT owner, id, type, value FROM setting");
    if (!rows.isValid())
        return sqlite3_errcode(mConnection.handle());
    while (rows.next()) {
        const std::optional<Value> value = readValue(rows, 2, 3);
        if (!value)
            return SQLITE_CORRUPT;
        aContent.settings.insert({rows.number(0), rows.text(1)}, *value);
    }
    return rows.reset();
}

int StoreFile::load(StoreContent& aContent)
{
    StoreContent content;
    // All of one state, also when it is part of a transaction that writes.
    const bool alone = sqlite3_get_autocommit(mConnection.handle()) != 0;
    int code = alone ? mConnection.execute("BEGIN") : SQLITE_OK;
    if (code == SQLITE_OK)
        code = loadProfiles(content);
    if (code == SQLITE_OK)
        code = loadSettings(content);
    if (code == SQLITE_OK) {
        mLoadedVersion = mVersion.next() ? mVersion.number(0) : 0;
        code = mVersion.reset();
    }
    if (alone)
        mConnection.execute("COMMIT");
    if (code != SQLITE_OK)
        return code;
    if (content.profiles.size() < 2 || content.profiles[0].id != BuiltInProfileId ||
        content.profiles[1].id != DefaultUserProfileId)
        return SQLITE_CORRUPT;
    content.isKnown = true;
    aContent = std::move(content);
    return SQLITE_OK;
}

bool StoreFile::isChangedElsewhere()
{
    const bool changed = mVersion.next() && mVersion.number(0) != mLoadedVersion;
    mVersion.reset();
    return changed;
}

/** Runs a statement with type and value in two parameters of this number and the next. */
static int runWithValue(SqliteStatement& aStatement, int aIndex, const Value& aValue)
{
    QByteArray utf8;
    aStatement.bind(aIndex++, qint64(aValue.index()));
    if (const bool* flag = std::get_if<bool>(&aValue))
        aStatement.bind(aIndex, qint64(*flag));
    else if (const int* number = std::get_if<int>(&aValue))
        aStatement.bind(aIndex, qint64(*number));
    else if (const double* real = std::get_if<double>(&aValue))
        aStatement.bind(aIndex, *real);
    else if (const QString* text = std::get_if<QString>(&aValue))
        aStatement.bindText(aIndex, utf8 = text->toUtf8());
    else
        aStatement.bindBytes(aIndex, std::get<QByteArray>(aValue));
    return aStatement.run();
}

int StoreFile::write(const SettingKey& aKey, const Value& aValue)
{
    if (!mWrite.isValid())
        prepareToWrite();
    const QByteArray id = aKey.id.toUtf8();
    SqliteStatement& write = aKey.owner > GlobalOwner ? mWriteOfProfile : mWrite;
    return runWithValue(write.bind(1, aKey.owner).bindText(2, id), 3, aValue);
}

int StoreFile::writeForAllProfiles(const QString& aId, const Value& aValue)
{
    const QByteArray id = aId.toUtf8();
    SqliteStatement write =
        mConnection.prepare("INSERT INTO setting(owner, id, type, value)"
                            " SELECT profile.id, ?1, ?2, ?3 FROM profile WHERE true"
                            " ON CONFLICT DO UPDATE SET type = excluded.type, value = excluded.value");
    return runWithValue(write.bindText(1, id), 2, aValue);
}

int StoreFile::addProfile(const QString& aName, Owner& aId)
{
    const QByteArray name = aName.toUtf8();
    const int code = mConnection.prepare("INSERT INTO profile(name) VALUES(?1)").bindText(1, name).run();
    aId = sqlite3_last_insert_rowid(mConnection.handle());
    return code;
}

int StoreFile::deleteProfile(Owner aId)
{
    const int code = mConnection.prepare("DELETE FROM setting WHERE owner = ?1").bind(1, aId).run();
    return code != SQLITE_OK ? code
                             : mConnection.prepare("DELETE FROM profile WHERE id = ?1").bind(1, aId).run();
}

int StoreFile::renameProfile(Owner aId, const QString& aName)
{
    const QByteArray name = aName.toUtf8();
    return mConnection.prepare("UPDATE profile SET name = ?2 WHERE id = ?1")
        .bind(1, aId)
        .bindText(2, name)
        .run();
}

int StoreFile::activateProfile(Owner aId)
{
    return mConnection.prepare("UPDATE profile SET active = (id = ?1)").bind(1, aId).run();
}

int StoreFile::resetProfile(Owner aId)
{
    const int code = mConnection.prepare("DELETE FROM setting WHERE owner = ?1").bind(1, aId).run();
    if (code != SQLITE_OK || aId == BuiltInProfileId)
        return code;
    return mConnection
        .prepare("INSERT INTO setting(owner, id, type, value) SELECT ?1, id, type, value FROM setting WHERE "
                 "owner = ?2")
        .bind(1, aId)
        .bind(2, BuiltInProfileId)
        .run();
}

int StoreFile::deleteEverything()
{
    const int code =
        mConnection.prepare("DELETE FROM profile WHERE id > ?1").bind(1, DefaultUserProfileId).run();
    return code != SQLITE_OK ? code : mConnection.execute("DELETE FROM setting");
}

int StoreFile::writeProfiles(const StoreContent& aContent)
{
    SqliteStatement write =
        mConnection.prepare("INSERT OR REPLACE INTO profile(id, name, active) VALUES(?1, ?2, ?3)");
    for (const Profile& profile : aContent.profiles) {
        const QByteArray name = profile.name.toUtf8();
        const int code = write.bind(1, profile.id)
                             .bindText(2, name)
                             .bind(3, qint64(profile.id == aContent.activeProfile))
                             .run();
        if (code != SQLITE_OK)
            return code;
    }
    return SQLITE_OK;
}

} // namespace DataManager
