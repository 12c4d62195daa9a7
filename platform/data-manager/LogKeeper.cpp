#include <platform/data-manager/LogKeeper.h>

#include <QByteArray>
#include <QFile>
#include <QFileInfo>
#include <sys/stat.h>
#include <utility>

#include <platform/data-manager/MediumSync.h>
#include <platform/data-manager/StoreFile.h>

namespace DataManager {

/** How old the first write is when the log is synced; with the sync itself that stays below half a second. */
static constexpr std::chrono::milliseconds SyncDelay(200);

/** Pages of 1 KiB after which the log is carried over at the next quiet moment, and in any case. */
static constexpr int LongLog = 1000;
static constexpr int LongestLog = 2000;
static constexpr int LongestUnsyncedLog = 4000;

/** Pages after which a writer that is faster than the medium waits for the keeper, and for how long at most.
 */
static constexpr int MostPages = 4 * LongestUnsyncedLog;
static constexpr std::chrono::milliseconds LongestPause(200);

static constexpr sqlite3_int64 LogHeaderSize = 32;
static constexpr sqlite3_int64 LogFrameSize = StoreFile::PageSize + 24;

/** The keeper tries so often to get a lock between two operations of others, with this between. */
static constexpr int LockAttempts = 1000;
static constexpr std::chrono::microseconds LockInterval(200);

static sqlite3_file* logOf(SqliteConnection& aConnection)
{
    sqlite3_file* file = nullptr;
    sqlite3_file_control(aConnection.handle(), "main", SQLITE_FCNTL_JOURNAL_POINTER, &file);
    return file && file->pMethods ? file : nullptr;
}

/** Zeros behind the end of a log are no part of it. */
static void writeZeros(sqlite3_file& aLog)
{
    const sqlite3_int64 wanted = LogHeaderSize + (LongestLog + LongestLog / 10) * LogFrameSize;
    sqlite3_int64 size = 0;
    if (aLog.pMethods->xFileSize(&aLog, &size) != SQLITE_OK || size >= wanted)
        return;
    const QByteArray zeros(64 * 1024, '\0');
    while (size < wanted && aLog.pMethods->xWrite(&aLog, zeros.constData(), zeros.size(), size) == SQLITE_OK)
        size += zeros.size();
    aLog.pMethods->xSync(&aLog, SQLITE_SYNC_NORMAL);
}

void LogKeeper::extendLog(SqliteConnection& aWriter)
{
    // Nobody else may write meanwhile.
    if (aWriter.execute("BEGIN IMMEDIATE") != SQLITE_OK)
        return;
    if (sqlite3_file* const log = logOf(aWriter))
        writeZeros(*log);
    aWriter.execute("ROLLBACK");
}

LogKeeper::LogKeeper(const QString& aPath, Durability aDurability, std::function<void()> aMoved) :
    mPath(aPath), mFile(findFile(aPath)), mDurability(aDurability), mMoved(std::move(aMoved))
{
    // What a killed process left may not be on the medium yet.
    if (QFileInfo(mPath + QStringLiteral("-wal")).size() > 0)
        start();
}

void LogKeeper::start()
{
    mThread = std::thread([this] { run(); });
}

LogKeeper::~LogKeeper()
{
    if (!mThread.joinable())
        return;
    {
        const std::lock_guard<std::mutex> lock(mMutex);
        mStopping = true;
    }
    mWake.notify_one();
    mThread.join();
}

int LogKeeper::noteCommit(sqlite3* aWriter, int aLogPages)
{
    if (!mThread.joinable())
        start();
    mLogPages.store(aLogPages, std::memory_order_relaxed);
    const bool first = !mWritten.load(std::memory_order_relaxed);
    if (first) {
        mFirstWrite = std::chrono::steady_clock::now();
        mWritten = true;
    }
    const bool urgent = aLogPages >= LongestUnsyncedLog && !mUrgent.exchange(true);
    if (first || urgent) {
        // The thread looks at the flags with the mutex held: without it, it could miss the call.
        mMutex.lock();
        mMutex.unlock();
        mWake.notify_one();
    }
    if (mDurability == Durability::Full && aLogPages >= LongestLog)
        sqlite3_wal_checkpoint_v2(aWriter, nullptr, SQLITE_CHECKPOINT_PASSIVE, nullptr, nullptr);
    if (aLogPages >= MostPages) {
        std::unique_lock<std::mutex> lock(mMutex);
        mShortened.wait_for(lock, LongestPause, [this] { return mLogPages < MostPages; });
    }
    return SQLITE_OK;
}

void LogKeeper::run()
{
    open();
    std::unique_lock<std::mutex> lock(mMutex);
    while (!mStopping) {
        mWake.wait(lock, [this] { return mStopping || mWritten || mUrgent; });
        mWake.wait_until(lock, mFirstWrite.load() + SyncDelay, [this] { return mStopping || mUrgent; });
        lock.unlock();
        keep();
        lock.lock();
    }
    lock.unlock();
    close();
}

bool LogKeeper::open()
{
    if (isMoved() || mConnection.open(mPath, SQLITE_OPEN_READWRITE) != SQLITE_OK)
        return false;
    const auto tryAgain = [](void*, int aTimes) {
        std::this_thread::sleep_for(LockInterval);
        return aTimes < LockAttempts ? 1 : 0;
    };
    sqlite3_busy_handler(mConnection.handle(), tryAgain, nullptr);
    mConnection.execute("PRAGMA synchronous=FULL; PRAGMA wal_autocheckpoint=0");
    // A connection knows the log only after it has read.
    mConnection.number("SELECT count(*) FROM profile", 0);
    syncLog();
    syncFolderOf(mPath);
    return true;
}

void LogKeeper::keep()
{
    mUrgent = false;
    mWritten = false;
    if (isMoved()) {
        mMissed = true;
        mMoved();
    }
    if (!mConnection.isOpen() && !open())
        return;
    if (mDurability == Durability::Normal)
        syncLog();
    const int pages = mLogPages;
    // A writer that comes while the log is emptied has to wait, so that is for a time when none does.
    if (pages >= LongestUnsyncedLog || (pages >= LongLog && !mWritten))
        carryOver();
}

void LogKeeper::syncLog()
{
    sqlite3_file* const log = logOf(mConnection);
    const bool failed =
        log && log->pMethods->xSync(log, SQLITE_SYNC_NORMAL | SQLITE_SYNC_DATAONLY) != SQLITE_OK;
    if (failed && !mSyncFailed)
        qCritical(
            "The settings store '%s' cannot be brought to the medium; what is written now may not survive a "
            "power cut. Check the medium.",
            qUtf8Printable(mPath));
    mSyncFailed = failed;
}

void LogKeeper::carryOver()
{
    const bool full = mDurability == Durability::Full;
    const int mode = full ? SQLITE_CHECKPOINT_PASSIVE : SQLITE_CHECKPOINT_TRUNCATE;
    mCarryingOver = true;
    const int code = sqlite3_wal_checkpoint_v2(mConnection.handle(), nullptr, mode, nullptr, nullptr);
    mCarryingOver = false;
    {
        const std::lock_guard<std::mutex> lock(mMutex);
        mUrgent = code == SQLITE_BUSY;
        if (code == SQLITE_OK)
            mLogPages = 0;
    }
    mShortened.notify_one();
    syncLog();
}

LogKeeper::FileNumber LogKeeper::findFile(const QString& aPath)
{
    struct stat status = {};
    ::stat(QFile::encodeName(aPath).constData(), &status);
    return {status.st_dev, status.st_ino};
}

void LogKeeper::close()
{
    if (!mConnection.isOpen())
        return;
    syncLog();
    if (mDurability == Durability::Full) {
        int keepLog = 1;
        sqlite3_file_control(mConnection.handle(), "main", SQLITE_FCNTL_PERSIST_WAL, &keepLog);
    }
    mConnection.close();
    syncFolderOf(mPath);
}

} // namespace DataManager
