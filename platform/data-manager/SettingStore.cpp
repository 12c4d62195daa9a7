#include <platform/data-manager/SettingStore.h>

#include <QThread>
#include <utility>

#include <platform/data-manager/ChangeBus.h>
#include <platform/data-manager/DataManager.h>
#include <platform/data-manager/LocalChanges.h>

namespace DataManager {

/** How long after a failed attempt the file is tried again, in milliseconds. */
static constexpr int RetryInterval = 1000;

/** How long a write may wait for the keeper of the log, in milliseconds; it takes a few. */
static constexpr int KeeperPatience = 1000;

static int toReturnCode(int aSqliteCode)
{
    switch (aSqliteCode & 0xff) {
    case SQLITE_OK:
        return Ok;
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return DatabaseBusy;
    default:
        return SqlError;
    }
}

static int settingTypeOf(Owner aOwner)
{
    switch (aOwner) {
    case ProtectedOwner:
        return ChangeBus::ProtectedSetting;
    case GlobalOwner:
        return ChangeBus::GlobalSetting;
    default:
        return ChangeBus::UserSetting;
    }
}

SettingStore::SettingStore(const StoreConfiguration& aConfiguration) :
    mConfiguration(aConfiguration), mDefaults(aConfiguration.defaultsPath), mRetry(this)
{
    mRetry.setInterval(RetryInterval);
    connect(&mRetry, &QTimer::timeout, this, &SettingStore::retry);
    open();
}

SettingStore::~SettingStore()
{
    if (mKeeper && mKeeper->losesWrites())
        onFileMoved();
    if (!mPending.isEmpty())
        flush();
    // The keeper closes last: what it then does waits for the medium.
    mFile.close();
}

void SettingStore::open()
{
    StoreContent content;
    QString why;
    const OpeningOutcome outcome = openStore(mConfiguration, mPatience > 0, mFile, content, why);
    mSinceAttempt.start();
    if (outcome == OpeningOutcome::Unavailable) {
        if (!mContent.isKnown)
            takeContent(readStoreCopy(mConfiguration.storePath));
        return reportOutage(why);
    }
    takeContent(std::move(content));
    mOrigin = outcome == OpeningOutcome::Built ? DatabaseBuilt : DatabaseOpened;
    useFile();
}

void SettingStore::useFile()
{
    if (mConfiguration.durability == Durability::Full)
        LogKeeper::extendLog(mFile.connection());
    const auto moved = [this] {
        QMetaObject::invokeMethod(this, &SettingStore::onFileMoved, Qt::QueuedConnection);
    };
    mKeeper = std::make_unique<LogKeeper>(mConfiguration.storePath, mConfiguration.durability, moved);
    const auto noteCommit = [](void* aKeeper, sqlite3* aWriter, const char*, int aLogPages) {
        return static_cast<LogKeeper*>(aKeeper)->noteCommit(aWriter, aLogPages);
    };
    sqlite3_wal_hook(mFile.connection().handle(), noteCommit, mKeeper.get());
    const auto waitForLock = [](void* aStore, int aTimes) {
        return static_cast<SettingStore*>(aStore)->waitForLock(aTimes);
    };
    sqlite3_busy_handler(mFile.connection().handle(), waitForLock, this);
}

/** The keeper is done soon, and only others are a reason to give up. */
int SettingStore::waitForLock(int aTimes)
{
    if (aTimes == 0)
        mSinceLocked.start();
    const int patience = mKeeper && mKeeper->isCarryingOver() ? KeeperPatience : mPatience;
    if (mSinceLocked.hasExpired(patience))
        return 0;
    QThread::usleep(200);
    return 1;
}

void SettingStore::takeContent(StoreContent&& aContent)
{
    mPending.putOver(aContent, mContent);
    if (mProfilesPending) {
        aContent.profiles = mContent.profiles;
        aContent.activeProfile = mContent.activeProfile;
    }
    mContent = std::move(aContent);
}

int SettingStore::reloadIfChanged(bool& aReloaded)
{
    aReloaded = mFile.isOpen() && mFile.isChangedElsewhere();
    if (!aReloaded)
        return SQLITE_OK;
    StoreContent content;
    const int code = mFile.load(content);
    if (code == SQLITE_OK) {
        takeContent(std::move(content));
        LocalChanges::instance().noteTakeover();
    }
    return code;
}

void SettingStore::refresh()
{
    bool reloaded = false;
    const int code = reloadIfChanged(reloaded);
    if (code != SQLITE_OK)
        fail(code);
}

const Profile* SettingStore::findProfile(const QString& aName)
{
    refresh();
    for (const Profile& profile : mContent.profiles)
        if (aName.isEmpty() ? profile.id == mContent.activeProfile : profile.name == aName)
            return &profile;
    return nullptr;
}

QString SettingStore::getActiveProfileName()
{
    const Profile* const profile = findProfile(QString());
    return profile ? profile->name : QString();
}

QStringList SettingStore::getProfileNames()
{
    refresh();
    QStringList names;
    for (const Profile& profile : mContent.profiles)
        names.append(profile.name);
    return names;
}

ReadResult SettingStore::read(Scope aScope, const QString& aId, const QString& aProfile)
{
    Owner owner = aScope == Scope::Protected ? ProtectedOwner : GlobalOwner;
    if (aScope == Scope::User) {
        const Profile* const profile = findProfile(aProfile);
        if (!profile)
            return {ProfileNotFound, nullptr};
        owner = profile->id;
    } else {
        refresh();
    }
    const auto setting = mContent.settings.constFind({owner, aId});
    if (setting != mContent.settings.constEnd())
        return {Ok, &*setting};
    // Who is told that there is none would write a default over what nobody could read.
    return {mContent.isKnown ? int(SettingNotFound) : mFailure, nullptr};
}

ReadResult SettingStore::readDefault(const QString& aId, const Value& aPrototype)
{
    return mDefaults.read(aId, aPrototype);
}

int SettingStore::write(Scope aScope, const QString& aId, const Value& aValue, const QString& aProfile)
{
    if (aScope == Scope::Protected)
        return writeSetting({ProtectedOwner, aId}, aValue);
    if (aScope == Scope::Global)
        return writeSetting({GlobalOwner, aId}, aValue);
    const Profile* const profile = findProfile(aProfile);
    if (aScope == Scope::AllUsers)
        return writeForAllProfiles(aId, aValue);
    return profile ? writeSetting({profile->id, aId}, aValue) : ProfileNotFound;
}

/** Whoever is told of a write may do anything, so that comes last. */
int SettingStore::writeSetting(const SettingKey& aKey, const Value& aValue)
{
    const int type = settingTypeOf(aKey.owner);
    int code = SQLITE_OK;
    const bool direct = isDirect();
    if (direct && (code = mFile.write(aKey, aValue)) == SQLITE_OK) {
        if (mFile.changedRows() == 0)
            return ProfileNotFound;
        announcer().announceSetting(type, aKey.id);
    } else {
        mPending.keep(aKey, mContent, mBatchDepth == 0);
    }
    mContent.settings.insert(aKey, aValue);
    const int result = finishWrite(direct, code);
    LocalChanges::instance().notifySetting(type, aKey.id);
    return result;
}

int SettingStore::writeForAllProfiles(const QString& aId, const Value& aValue)
{
    int code = SQLITE_OK;
    const bool direct = isDirect();
    if (direct && (code = mFile.writeForAllProfiles(aId, aValue)) == SQLITE_OK)
        announcer().announceSetting(ChangeBus::AllUsersSetting, aId);
    for (const Profile& profile : mContent.profiles) {
        if (!direct || code != SQLITE_OK)
            mPending.keep({profile.id, aId}, mContent, mBatchDepth == 0);
        mContent.settings.insert({profile.id, aId}, aValue);
    }
    const int result = finishWrite(direct, code);
    LocalChanges::instance().notifySetting(ChangeBus::AllUsersSetting, aId);
    return result;
}

int SettingStore::finishWrite(bool aDirect, int aSqliteCode)
{
    if (aDirect)
        return aSqliteCode == SQLITE_OK ? int(Ok) : fail(aSqliteCode);
    return mBatchDepth > 0 ? int(Ok) : flushIfDue();
}

int SettingStore::beginBatch()
{
    ++mBatchDepth;
    return Ok;
}

int SettingStore::commitBatch()
{
    if (mBatchDepth == 0)
        return Failed;
    if (--mBatchDepth > 0 || mPending.isEmpty())
        return Ok;
    return isDown() ? flushIfDue() : flush();
}

int SettingStore::transact(const Job& aJob)
{
    int code = mFile.begin();
    if (code != SQLITE_OK)
        return code;
    code = aJob(mFile);
    if (code == SQLITE_OK)
        code = mFile.commit();
    if (code != SQLITE_OK)
        mFile.rollBack();
    return code;
}

int SettingStore::writePending()
{
    const int code = mProfilesPending ? mFile.writeProfiles(mContent) : SQLITE_OK;
    return code == SQLITE_OK ? mPending.write(mFile, mContent) : code;
}

int SettingStore::flush()
{
    mSinceAttempt.start();
    const StoreContent before = mContent;
    const bool opening = !mFile.isOpen();
    if (opening)
        open();
    if (!mFile.isOpen())
        return mFailure;
    bool merged = false;
    const int code = transact([&](StoreFile&) {
        const int reloaded = reloadIfChanged(merged);
        return reloaded == SQLITE_OK ? writePending() : reloaded;
    });
    if (code != SQLITE_OK)
        return fail(code);
    announceWritten();
    recover();
    if (merged || opening)
        announceDifferences(before);
    return Ok;
}

/** Others hear of a value when it is in the file. */
void SettingStore::announceWritten()
{
    std::vector<ChangeAnnouncer::Setting> written;
    const QList<SettingKey> keys = mPending.keys();
    for (const SettingKey& key : keys)
        written.emplace_back(settingTypeOf(key.owner), key.id);
    mPending.clear();
    announcer().announceSettings(written);
    mProfilesPending = false;
}

int SettingStore::flushIfDue() { return mSinceAttempt.hasExpired(RetryInterval) ? flush() : mFailure; }

/** Waits for no other writer, as nobody asked for it now. */
void SettingStore::retry()
{
    if (mBatchDepth > 0)
        return;
    mPatience = 0;
    flush();
    mPatience = BusyTimeout;
}

int SettingStore::fail(int aSqliteCode)
{
    // A store that was made anew a moment ago and is damaged again is the medium's fault.
    if (isDamage(aSqliteCode) && !mProfilesPending) {
        QString why;
        mKeeper.reset();
        mFile.close();
        if (setStoreAside(mConfiguration.storePath, why))
            return replaceFile();
        reportOutage(why);
        return mFailure;
    }
    const QString why = mFile.connection().message();
    const int code = toReturnCode(aSqliteCode);
    reportOutage(why);
    mFailure = code;
    return code;
}

void SettingStore::reportOutage(const QString& aWhy)
{
    mSinceAttempt.start();
    if (isDown())
        return;
    mFailure = SqlError;
    mRetry.start();
    qCritical(
        "The settings store '%s' cannot be written: %s. Settings are kept in memory and written as soon as "
        "possible; check the folder, its rights, the free space and who else uses the file.",
        qUtf8Printable(mConfiguration.storePath), qUtf8Printable(aWhy));
}

void SettingStore::recover()
{
    if (!isDown())
        return;
    mFailure = Ok;
    mRetry.stop();
    qInfo("The settings store '%s' is written again.", qUtf8Printable(mConfiguration.storePath));
}

/** Everything in memory goes to the file that now is at the place. */
int SettingStore::replaceFile()
{
    mPending.keepAll(mContent);
    mProfilesPending = true;
    mKeeper.reset();
    mFile.close();
    return flush();
}

void SettingStore::onFileMoved()
{
    if (!mFile.isOpen() || isDown())
        return;
    qWarning(
        "The settings store '%s' was moved or removed while it was used; it is written anew from memory.",
        qUtf8Printable(mConfiguration.storePath));
    replaceFile();
}

void SettingStore::announceDifferences(const StoreContent& aBefore)
{
    std::vector<ChangeAnnouncer::Setting> changed;
    for (const SettingKey& key : visibleDifferences(aBefore, mContent))
        changed.emplace_back(settingTypeOf(key.owner), key.id);
    announcer().announceSettings(changed);
    for (const auto& [type, id] : changed)
        LocalChanges::instance().notifySetting(type, id);
}

/** Who only reads needs none. */
ChangeAnnouncer& SettingStore::announcer()
{
    if (!mAnnouncer)
        mAnnouncer = std::make_unique<ChangeAnnouncer>();
    return *mAnnouncer;
}

int SettingStore::change(const Job& aJob)
{
    if (isDown() && flushIfDue() != Ok)
        return mFailure;
    const QString activeName = getActiveProfileName();
    const StoreContent before = mContent;
    // What a batch has collected so far comes before the job.
    int code = transact([&](StoreFile& aFile) {
        const int pending = writePending();
        return pending == SQLITE_OK ? aJob(aFile) : pending;
    });
    // Another process was faster.
    if ((code & 0xff) == SQLITE_CONSTRAINT)
        return ProfileExists;
    StoreContent content;
    if (code == SQLITE_OK) {
        announceWritten();
        code = mFile.load(content);
    }
    if (code != SQLITE_OK)
        return fail(code);
    takeContent(std::move(content));
    const QString nowActive = getActiveProfileName();
    const bool activeChanged = nowActive != activeName || mContent.activeProfile != before.activeProfile;
    if (activeChanged)
        announcer().announceProfile(nowActive);
    announceDifferences(before);
    if (activeChanged)
        LocalChanges::instance().notifyProfile(nowActive);
    return Ok;
}

int SettingStore::eraseEverything()
{
    return change([](StoreFile& aFile) {
        const int code = aFile.deleteEverything();
        return code == SQLITE_OK ? aFile.activateProfile(DefaultUserProfileId) : code;
    });
}

} // namespace DataManager
