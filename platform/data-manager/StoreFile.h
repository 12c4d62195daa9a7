#pragma once

#include <QString>

#include <platform/data-manager/SqliteConnection.h>
#include <platform/data-manager/StoreConfiguration.h>
#include <platform/data-manager/StoreContent.h>

namespace DataManager {

/**
 * The opened file of a store: an SQLite database with a write-ahead log. All writes go through here; returned
 * are SQLite's codes. In durability Normal nothing here ever waits for the medium; see LogKeeper.
 *
 *     profile(id, name, active)          the names are unique, one is active
 *     setting(owner, id, type, value)    type: the index of Value
 */
class StoreFile
{
public:
    /** The numbers by which a store is known, and the layout above. */
    static constexpr int ApplicationId = 0x484d4953;
    static constexpr int LayoutVersion = 1;

    /** Bytes. Settings are small and a write logs a whole page: SQLite's own 4096 take a third longer. */
    static constexpr int PageSize = 1024;

    /** Makes the tables of an empty database, with the two profiles. */
    static int makeLayout(SqliteConnection& aConnection);

    /** Opens a file that exists. aWhy says why it cannot be used. */
    int open(const QString& aPath, Durability aDurability, QString& aWhy);
    void close();
    bool isOpen() const { return mConnection.isOpen(); }

    /** Reads everything; SQLITE_CORRUPT also when a row makes no sense. */
    int load(StoreContent& aContent);
    /** Whether another connection wrote since load(). */
    bool isChangedElsewhere();

    /** SQLITE_OK without effect when the profile that is the owner is gone, see changedRows(). */
    int write(const SettingKey& aKey, const Value& aValue);
    int writeForAllProfiles(const QString& aId, const Value& aValue);

    int addProfile(const QString& aName, Owner& aId);
    int deleteProfile(Owner aId);
    int renameProfile(Owner aId, const QString& aName);
    int activateProfile(Owner aId);
    /** The settings of the built-in profile in place of its own. */
    int resetProfile(Owner aId);
    int deleteEverything();
    /** Puts the profiles of a content into a store that was made anew. */
    int writeProfiles(const StoreContent& aContent);

    int begin();
    int commit() { return mCommit.run(); }
    void rollBack() { mConnection.execute("ROLLBACK"); }

    int changedRows() const { return sqlite3_changes(mConnection.handle()); }
    SqliteConnection& connection() { return mConnection; }

private:
    int configure(Durability aDurability);
    int check(QString& aWhy);
    void prepareToWrite();
    int loadProfiles(StoreContent& aContent);
    int loadSettings(StoreContent& aContent);

    // The statements go before the connection.
    SqliteConnection mConnection;
    SqliteStatement mVersion;
    SqliteStatement mWrite;
    SqliteStatement mWriteOfProfile;
    SqliteStatement mBegin;
    SqliteStatement mCommit;
    qint64 mLoadedVersion = 0;
};

} // namespace DataManager
