#include "FaultyDisk.h"

#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QMutexLocker>
#include <QRandomGenerator>
#include <QThread>
#include <sys/stat.h>

namespace HmiTest {

/** The methods of an open file, in place of the real ones. */
struct FaultyDisk::Handle : sqlite3_io_methods
{
    const sqlite3_io_methods* real;
    FaultyDisk* disk;
    FilePtr file;
    QString path;

    static Handle* of(sqlite3_file* aFile)
    {
        return static_cast<Handle*>(const_cast<sqlite3_io_methods*>(aFile->pMethods));
    }
    static int close(sqlite3_file* aFile);
    static int write(sqlite3_file* aFile, const void* aBytes, int aCount, sqlite3_int64 aOffset);
    static int truncate(sqlite3_file* aFile, sqlite3_int64 aLength);
    static int sync(sqlite3_file* aFile, int aFlags);
    static int mapShared(sqlite3_file* aFile, int aRegion, int aSize, int aExtend, void volatile** aMemory);
};

FaultyDisk::FaultyDisk(const QString& aFolder) :
    mFolder(aFolder + QLatin1Char('/')), mReal(sqlite3_vfs_find(nullptr)), mVfs(*mReal)
{
    mVfs.zName = "faulty";
    mVfs.pAppData = this;
    mVfs.xOpen = &open;
    mVfs.xDelete = &remove;
    sqlite3_vfs_register(&mVfs, 1);
}

FaultyDisk::~FaultyDisk()
{
    sqlite3_vfs_unregister(&mVfs);
    sqlite3_vfs_register(mReal, 1);
}

void FaultyDisk::Change::applyTo(QByteArray& aContent) const
{
    const int end = int(offset) + bytes.size();
    if (aContent.size() < end)
        aContent.append(QByteArray(end - aContent.size(), '\0'));
    if (truncation)
        aContent.truncate(end);
    else
        aContent.replace(int(offset), bytes.size(), bytes);
}

void FaultyDisk::powerCut(const QString& aFolder, quint32 aSeed) const
{
    // The connections go on while the files are made.
    QMap<QString, File> files;
    QMutexLocker lock(&mMutex);
    for (auto file = mFiles.begin(); file != mFiles.end(); ++file)
        files.insert(file.key(), *file.value());
    lock.unlock();
    QRandomGenerator random(aSeed);
    for (const QString& path : files.keys()) {
        const File& file = files[path];
        QByteArray content = file.durable;
        // From a disk that wrote nothing of this file to one that wrote nearly all.
        const int chance = int(random.bounded(5)) * 24;
        for (Change change : file.changes) {
            const bool kept = int(random.bounded(100)) < chance;
            if (!kept && change.truncation)
                break;
            const qint64 sector = (change.offset / 512 + 1 + random.bounded(8)) * 512 - change.offset;
            if (random.bounded(4) == 0 && sector < change.bytes.size()) {
                const bool head = random.bounded(2) == 0;
                change.bytes = head ? change.bytes.left(int(sector)) : change.bytes.mid(int(sector));
                change.offset += head ? 0 : sector;
            }
            if (kept)
                change.applyTo(content);
        }
        QFile left(aFolder + QLatin1Char('/') + QFileInfo(path).fileName());
        if ((file.exists || !content.isEmpty()) &&
            (!left.open(QFile::WriteOnly) || left.write(content) != content.size()))
            qFatal("cannot write %s", qPrintable(left.fileName()));
    }
}

/** A path at which another program put another file is a new file. */
FaultyDisk::FilePtr FaultyDisk::fileOf(const QString& aPath, bool aExisted)
{
    struct stat status = {};
    ::stat(QFile::encodeName(aPath).constData(), &status);
    FilePtr& file = mFiles[aPath];
    if (!file || file->inode != status.st_ino) {
        file = std::make_shared<File>();
        QFile content(aPath);
        if (aExisted && content.open(QFile::ReadOnly))
            file->durable = content.readAll();
        file->exists = aExisted;
        file->inode = status.st_ino;
        file->length = file->durable.size();
    }
    return file;
}

bool FaultyDisk::hasRoom(qint64 aGrowth) const
{
    qint64 total = aGrowth;
    for (const FilePtr& file : mFiles)
        total += file->length;
    return aGrowth <= 0 || mQuota < 0 || total <= mQuota;
}

int FaultyDisk::open(sqlite3_vfs* aVfs, const char* aPath, sqlite3_file* aFile, int aFlags, int* aOutFlags)
{
    auto* disk = static_cast<FaultyDisk*>(aVfs->pAppData);
    const QMutexLocker lock(&disk->mMutex);
    const QString path = QFile::decodeName(aPath);
    const bool isLasting = aFlags & (SQLITE_OPEN_MAIN_DB | SQLITE_OPEN_WAL | SQLITE_OPEN_MAIN_JOURNAL);
    if (!isLasting || !path.startsWith(disk->mFolder))
        return disk->mReal->xOpen(disk->mReal, aPath, aFile, aFlags, aOutFlags);
    const bool existed = QFile::exists(path);
    const int writing = SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
    const int flags = disk->mReadOnly ? (aFlags & ~writing) | SQLITE_OPEN_READONLY : aFlags;
    const int code = disk->mReal->xOpen(disk->mReal, aPath, aFile, flags, aOutFlags);
    if (code != SQLITE_OK)
        return code;
    auto* handle = new Handle{*aFile->pMethods, aFile->pMethods, disk, disk->fileOf(path, existed), path};
    handle->iVersion = 2; // not mapped, so that every change passes here
    handle->xClose = &Handle::close;
    handle->xWrite = &Handle::write;
    handle->xTruncate = &Handle::truncate;
    handle->xSync = &Handle::sync;
    handle->xShmMap = &Handle::mapShared;
    aFile->pMethods = handle;
    return code;
}

int FaultyDisk::remove(sqlite3_vfs* aVfs, const char* aPath, int aSyncFolder)
{
    auto* disk = static_cast<FaultyDisk*>(aVfs->pAppData);
    const QMutexLocker lock(&disk->mMutex);
    const QString path = QFile::decodeName(aPath);
    if (disk->mReadOnly && path.startsWith(disk->mFolder))
        return SQLITE_IOERR_DELETE;
    disk->mFiles.remove(path);
    return disk->mReal->xDelete(disk->mReal, aPath, aSyncFolder);
}

int FaultyDisk::Handle::close(sqlite3_file* aFile)
{
    const std::unique_ptr<Handle> handle(of(aFile));
    return handle->real->xClose(aFile);
}

int FaultyDisk::Handle::write(sqlite3_file* aFile, const void* aBytes, int aCount, sqlite3_int64 aOffset)
{
    const Handle& handle = *of(aFile);
    const QMutexLocker lock(&handle.disk->mMutex);
    if (handle.disk->mReadOnly)
        return SQLITE_IOERR_WRITE;
    if (!handle.disk->hasRoom(aOffset + aCount - handle.file->length))
        return SQLITE_FULL;
    handle.file->length = qMax(handle.file->length, qint64(aOffset + aCount));
    handle.file->changes.append({aOffset, QByteArray(static_cast<const char*>(aBytes), aCount), false});
    return handle.real->xWrite(aFile, aBytes, aCount, aOffset);
}

int FaultyDisk::Handle::truncate(sqlite3_file* aFile, sqlite3_int64 aLength)
{
    const Handle& handle = *of(aFile);
    const QMutexLocker lock(&handle.disk->mMutex);
    if (handle.disk->mReadOnly)
        return SQLITE_IOERR_TRUNCATE;
    handle.file->length = aLength;
    handle.file->changes.append({aLength, {}, true});
    return handle.real->xTruncate(aFile, aLength);
}

/** Durable is what was written before the sync began, once it has ended. The real medium, busy or not, stays
 * out. */
int FaultyDisk::Handle::sync(sqlite3_file* aFile, int)
{
    const Handle& handle = *of(aFile);
    File& file = *handle.file;
    QMutexLocker lock(&handle.disk->mMutex);
    const quint64 end = file.synced + quint64(file.changes.size());
    lock.unlock();
    QThread::usleep(1000);
    lock.relock();
    for (; file.synced < end; ++file.synced)
        file.changes.takeFirst().applyTo(file.durable);
    file.exists = true;
    return SQLITE_OK;
}

int FaultyDisk::Handle::mapShared(sqlite3_file* aFile, int aRegion, int aSize, int aExtend,
                                  void volatile** aMemory)
{
    const Handle& handle = *of(aFile);
    const QFileInfo shared(handle.path + QStringLiteral("-shm"));
    const QMutexLocker lock(&handle.disk->mMutex);
    const bool readOnly = handle.disk->mReadOnly;
    if (readOnly && !shared.exists())
        return SQLITE_CANTOPEN;
    if (aExtend && !handle.disk->hasRoom(qint64(aRegion + 1) * aSize - shared.size()))
        return SQLITE_IOERR_SHMSIZE;
    const int code = handle.real->xShmMap(aFile, aRegion, aSize, readOnly ? 0 : aExtend, aMemory);
    return code == SQLITE_OK && readOnly ? SQLITE_READONLY : code;
}

} // namespace HmiTest
