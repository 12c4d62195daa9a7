#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QTimer>
#include <functional>
#include <memory>

#include <platform/data-manager/ChangeAnnouncer.h>
#include <platform/data-manager/DataManager.h>
#include <platform/data-manager/LogKeeper.h>
#include <platform/data-manager/PendingValues.h>
#include <platform/data-manager/SettingDefaults.h>
#include <platform/data-manager/StoreFile.h>
#include <platform/data-manager/StoreOpening.h>

namespace DataManager {

/**
 * The started data manager: the content in memory over the file, and what happens when the file fails. Made
 * on any thread, used on the main thread only.
 *
 * A value that the file did not take is pending: it is served, and written when the file takes it again.
 * Settings of a batch are pending until its end.
 */
class SettingStore : public QObject
{
    Q_OBJECT

public:
    /** Statements that return SQLite's code. */
    using Job = std::function<int(StoreFile& aFile)>;

    /** Opens the store; one that is unavailable is reported, and is tried again. */
    explicit SettingStore(const StoreConfiguration& aConfiguration);
    ~SettingStore() override;

    /** DatabaseBuilt or DatabaseOpened. */
    int getOrigin() const { return mOrigin; }

    ReadResult read(Scope aScope, const QString& aId, const QString& aProfile);
    ReadResult readDefault(const QString& aId, const Value& aPrototype);
    int write(Scope aScope, const QString& aId, const Value& aValue, const QString& aProfile);

    int beginBatch();
    int commitBatch();

    /** With what other processes changed; empty for the active profile. Null when there is none. */
    const Profile* findProfile(const QString& aName);
    const StoreContent& getContent() const { return mContent; }
    /** Runs the statements of a job in one transaction, and takes over and announces what they changed. */
    int change(const Job& aJob);
    int eraseEverything();

    QStringList getProfileNames();
    QString getActiveProfileName();

private:
    void open();
    void useFile();
    int waitForLock(int aTimes);
    /** Takes over what other processes wrote; SQLite's code. */
    int reloadIfChanged(bool& aReloaded);
    void refresh();
    void takeContent(StoreContent&& aContent);

    int writeSetting(const SettingKey& aKey, const Value& aValue);
    int writeForAllProfiles(const QString& aId, const Value& aValue);
    bool isDirect() const { return mBatchDepth == 0 && !isDown(); }
    int finishWrite(bool aDirect, int aSqliteCode);
    int transact(const Job& aJob);
    int writePending();
    void announceWritten();
    int flush();

    int fail(int aSqliteCode);
    void reportOutage(const QString& aWhy);
    void recover();
    void retry();
    bool isDown() const { return mFailure != Ok; }
    int flushIfDue();
    int replaceFile();
    void onFileMoved();

    void announceDifferences(const StoreContent& aBefore);
    ChangeAnnouncer& announcer();

    const StoreConfiguration mConfiguration;
    StoreContent mContent;
    SettingDefaults mDefaults;
    int mOrigin = DatabaseOpened;

    std::unique_ptr<ChangeAnnouncer> mAnnouncer;
    std::unique_ptr<LogKeeper> mKeeper;
    StoreFile mFile;

    PendingValues mPending;
    int mBatchDepth = 0;
    bool mProfilesPending = false;
    int mFailure = Ok; ///< what operations return while the file does not take them
    QElapsedTimer mSinceAttempt;
    QElapsedTimer mSinceLocked;
    int mPatience = BusyTimeout; ///< milliseconds
    QTimer mRetry;
};

} // namespace DataManager
