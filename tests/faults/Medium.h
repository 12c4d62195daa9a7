#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QMutex>
#include <QRandomGenerator>
#include <QString>
#include <QVector>
#include <atomic>
#include <functional>
#include <memory>
#include <sys/types.h>

/** How an operation on the medium goes wrong. */
enum class Fault {
    None,
    ErrorOnce,     ///< EIO, and nothing happens
    FullOnce,      ///< ENOSPC, after half of a write
    ErrorFromHere, ///< EIO, and so does everything that follows
    LosesUnsynced, ///< the power goes; what was not synced is lost, names of files included
    Tears,         ///< the power goes; all was on the medium, and half of this write
    Shuffles       ///< the power goes; any of what was not synced is lost, also parts of a write
};
constexpr int FaultCount = 7;

/**
 * The disk below a folder of this process. Every write, truncation, sync, creation, renaming and removal
 * there passes here, whoever asks for it: SQLite, Qt or the store itself (see SystemCalls.cpp). It counts
 * them, for the main thread and for all others apart, lets the planned one fail, and knows what has reached
 * the medium: the content of a file with its sync, the names in the folder with that of the folder. One at a
 * time. Any thread.
 */
class Medium
{
public:
    /** The empty folder's; for the main thread. */
    explicit Medium(const QString& aFolder);
    ~Medium();
    Q_DISABLE_COPY(Medium)

    /** From now on nothing can be written, and files are opened for reading only. */
    void setReadOnly(bool aReadOnly) { mReadOnly = aReadOnly; }
    /** From now on no file can grow. */
    void setFull(bool aFull) { mFull = aFull; }

    struct Plan
    {
        Fault fault = Fault::None;
        bool mainThread = true;
        int number = 0;  ///< of the operation, from 1
        QString image{}; ///< where a power cut leaves what is on the medium; the folder exists
    };
    void setPlan(const Plan& aPlan) { mPlan = aPlan; }
    /** What the power cut of the plan, or another, would leave if it happened now. */
    void cut(Fault aFault, const QString& aImage);

    int count(bool aMainThread) const { return mCounts[aMainThread]; }
    bool isHit() const;

    /** How far the script is, see getSyncedProgress(). */
    void setProgress(int aSteps);
    /** At the hit, or now. */
    int getProgress() const;
    /** What was the progress when the log was last brought to the medium, with its name. */
    int getSyncedProgress() const;

    // For the system calls.
    static Medium* instance();
    struct Operation
    {
        enum Kind { Write, Truncate, Sync, Create, Remove, Rename } kind;
        int descriptor = -1;
        QByteArray path{};
        QByteArray newPath{};
        qint64 offset = 0; ///< of a truncation, the new length
        QByteArray bytes{};
    };
    bool isReadOnly() const { return mReadOnly; }
    bool isBelow(const char* aPath) const;
    bool isBelow(int aDescriptor) const;
    void opened(int aDescriptor, const QByteArray& aPath, bool aIsFolder);
    void closed(int aDescriptor);
    /** Runs the call, or fails with errno. */
    ssize_t perform(const Operation& aOperation, const std::function<ssize_t()>& aCall);

private:
    struct Change
    {
        qint64 offset;
        QByteArray bytes;
        bool truncation;

        void applyTo(QByteArray& aContent) const;
        void tear(QRandomGenerator& aRandom);
    };
    struct File
    {
        bool isFolder = false;
        QByteArray durable;
        QVector<Change> changes;
        int syncedProgress = 0;
    };
    using FilePtr = std::shared_ptr<File>;
    using Names = QHash<QByteArray, FilePtr>;

    bool hasRoom(const Operation& aOperation) const;
    ssize_t goWrong(const Operation& aOperation);
    void record(const Operation& aOperation);
    void recordSync(File& aFile);
    void noteSyncedLogs();
    Names& changeNames();
    void makeImage(Fault aFault, const QString& aImage);
    QByteArray survivingContent(const File& aFile, Fault aFault);

    const QByteArray mFolder;
    mutable QMutex mMutex;
    std::atomic<bool> mReadOnly{false};
    std::atomic<bool> mFull{false};
    Plan mPlan;
    int mCounts[2] = {0, 0};
    bool mHit = false;
    bool mDown = false;
    int mProgress = 0;
    int mProgressAtHit = 0;
    int mSyncedProgress = 0;
    QHash<int, FilePtr> mOpen;
    QList<Names> mNames; ///< on the medium; then as each change left them
    QRandomGenerator mRandom;
};
