#pragma once

#include <QString>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>
#include <utility>

#include <platform/data-manager/SqliteConnection.h>
#include <platform/data-manager/StoreConfiguration.h>

namespace DataManager {

/**
 * Looks after the write-ahead log of a store from a thread of its own, so that the writing thread need not
 * wait for the medium: in durability Normal the log is on the medium a fifth of a second after a write, and
 * in both its content is carried over into the database file before it grows too long.
 *
 * In durability Normal the log is emptied when it is carried over, and the empty one is on the medium before
 * it is written again: written from its beginning while an old one can still be read after a power cut, what
 * is left of both would be taken for one. In durability Full the log keeps its length, as writes that do not
 * change the length of a file reach the medium in less than half the time; there SQLite syncs in the right
 * order itself.
 *
 * The thread starts with the first commit, or at once when there is a log already. The destructor brings
 * everything to the medium.
 */
class LogKeeper
{
public:
    /**
     * For the file that is at the path now. aMoved is called, from the thread, when that is found to be no
     * longer there.
     */
    LogKeeper(const QString& aPath, Durability aDurability, std::function<void()> aMoved);
    ~LogKeeper();
    Q_DISABLE_COPY(LogKeeper)

    /**
     * Gives the log of durability Full the length that it keeps, unless it has that already; waits for the
     * medium. For the thread that writes, before it does.
     */
    static void extendLog(SqliteConnection& aWriter);

    /**
     * After each commit, with the length of the log in pages; SQLite's hook. Any one thread. Takes
     * nanoseconds, but a writer that without a pause lets the log grow faster than the medium takes it waits
     * here for the keeper, and in durability Full carries the log over itself.
     */
    int noteCommit(sqlite3* aWriter, int aLogPages);

    /** Whether a writer that finds the file locked may be waiting for the keeper. Any thread. */
    bool isCarryingOver() const { return mCarryingOver; }

    /** Whether what was written last may be gone with a file that was moved or removed. Any thread. */
    bool losesWrites() const { return mMissed || (mWritten && isMoved()); }

private:
    /** By device and number; zeros where there is none. */
    using FileNumber = std::pair<quint64, quint64>;
    static FileNumber findFile(const QString& aPath);
    bool isMoved() const { return findFile(mPath) != mFile; }

    void start();
    void run();
    bool open();
    void keep();
    void syncLog();
    void carryOver();
    void close();

    const QString mPath;
    const FileNumber mFile;
    const Durability mDurability;
    const std::function<void()> mMoved;
    SqliteConnection mConnection; ///< of the thread

    std::atomic<int> mLogPages{0};
    std::atomic<bool> mWritten{false};
    std::atomic<std::chrono::steady_clock::time_point> mFirstWrite{std::chrono::steady_clock::time_point()};
    std::atomic<bool> mUrgent{false};
    std::atomic<bool> mCarryingOver{false};
    std::atomic<bool> mMissed{false};
    std::mutex mMutex;
    std::condition_variable mWake;
    std::condition_variable mShortened;
    bool mStopping = false;
    bool mSyncFailed = false; ///< of the thread
    std::thread mThread;
};

} // namespace DataManager
