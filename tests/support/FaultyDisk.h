#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QMutex>
#include <QString>
#include <atomic>
#include <memory>
#include <sqlite3.h>

namespace HmiTest {

/**
 * The disk below every SQLite connection that is opened while it lives, in any thread; connections have to be
 * closed before it ends. It knows which writes of databases, their logs and rollback journals reached the
 * medium, and fails as real disks do. Files are told apart by path; what happens to them other than through
 * SQLite is durable.
 */
class FaultyDisk
{
public:
    /** Files elsewhere than directly or deeper in the folder are on another disk, which is sound. */
    explicit FaultyDisk(const QString& aFolder);
    ~FaultyDisk();
    Q_DISABLE_COPY(FaultyDisk)

    /** The files may grow to this many bytes in all; negative is no limit. */
    void setQuota(qint64 aBytes) { mQuota = aBytes; }
    /** From now on nothing can be written; databases are opened for reading only. */
    void setReadOnly(bool aReadOnly) { mReadOnly = aReadOnly; }

    /**
     * Makes in the folder what a power cut at this instant may leave: the synced content of each file with
     * any of the later changes, each whole, torn at a sector or missing. Changes of the length are in order,
     * as in a file system that keeps a journal: with a truncation all that followed it is lost.
     */
    void powerCut(const QString& aFolder, quint32 aSeed) const;

private:
    struct Change
    {
        qint64 offset = 0;
        QByteArray bytes;
        bool truncation = false;

        void applyTo(QByteArray& aContent) const;
    };
    /** What one path holds on the medium, and the changes that have not reached it. */
    struct File
    {
        QByteArray durable;
        bool exists = false; ///< on the medium
        quint64 inode = 0;
        qint64 length = 0; ///< as programs see it
        quint64 synced = 0;
        QList<Change> changes;
    };
    using FilePtr = std::shared_ptr<File>;
    struct Handle;

    static int open(sqlite3_vfs* aVfs, const char* aPath, sqlite3_file* aFile, int aFlags, int* aOutFlags);
    static int remove(sqlite3_vfs* aVfs, const char* aPath, int aSyncFolder);
    FilePtr fileOf(const QString& aPath, bool aExisted);
    bool hasRoom(qint64 aGrowth) const;

    const QString mFolder;
    mutable QMutex mMutex;
    sqlite3_vfs* const mReal;
    sqlite3_vfs mVfs;
    QHash<QString, FilePtr> mFiles;
    std::atomic<qint64> mQuota{-1};
    std::atomic<bool> mReadOnly{false};
};

} // namespace HmiTest
