#include "Medium.h"

#include <QFile>
#include <QMutexLocker>
#include <atomic>
#include <cerrno>
#include <sys/stat.h>
#include <unistd.h>

static std::atomic<Medium*> sInstance{nullptr};
static thread_local bool sInside = false;
static thread_local bool sIsMainThread = false;

namespace {

/** The medium's own files are no business of it. */
struct Inside
{
    Inside() { sInside = true; }
    ~Inside() { sInside = false; }
    Q_DISABLE_COPY(Inside)
};

} // namespace

Medium* Medium::instance() { return sInside ? nullptr : sInstance.load(); }

Medium::Medium(const QString& aFolder) : mFolder(QFile::encodeName(aFolder)), mNames{Names()}
{
    sIsMainThread = true;
    sInstance = this;
}

Medium::~Medium() { sInstance = nullptr; }

bool Medium::isHit() const
{
    const QMutexLocker lock(&mMutex);
    return mHit;
}

void Medium::cut(Fault aFault, const QString& aImage)
{
    const QMutexLocker lock(&mMutex);
    const Inside inside;
    makeImage(aFault, aImage);
}

void Medium::setProgress(int aSteps)
{
    const QMutexLocker lock(&mMutex);
    mProgress = aSteps;
}

int Medium::getProgress() const
{
    const QMutexLocker lock(&mMutex);
    return mHit ? mProgressAtHit : mProgress;
}

int Medium::getSyncedProgress() const
{
    const QMutexLocker lock(&mMutex);
    return mSyncedProgress;
}

bool Medium::isBelow(const char* aPath) const
{
    return qstrncmp(aPath, mFolder.constData(), uint(mFolder.size())) == 0;
}

bool Medium::isBelow(int aDescriptor) const
{
    const QMutexLocker lock(&mMutex);
    return mOpen.contains(aDescriptor);
}

void Medium::opened(int aDescriptor, const QByteArray& aPath, bool aIsFolder)
{
    const QMutexLocker lock(&mMutex);
    FilePtr file = mNames.last().value(aPath);
    if (!file)
        file = std::make_shared<File>();
    file->isFolder = aIsFolder;
    mOpen.insert(aDescriptor, file);
}

void Medium::closed(int aDescriptor)
{
    const QMutexLocker lock(&mMutex);
    mOpen.remove(aDescriptor);
}

bool Medium::hasRoom(const Operation& aOperation) const
{
    struct stat status = {};
    if (!mFull || (aOperation.kind != Operation::Write && aOperation.kind != Operation::Truncate &&
                   aOperation.kind != Operation::Create))
        return true;
    return ::fstat(aOperation.descriptor, &status) == 0 &&
           aOperation.offset + aOperation.bytes.size() <= status.st_size;
}

ssize_t Medium::perform(const Operation& aOperation, const std::function<ssize_t()>& aCall)
{
    const QMutexLocker lock(&mMutex);
    const bool refused = mReadOnly && aOperation.kind != Operation::Sync;
    if (mDown || refused || !hasRoom(aOperation)) {
        errno = mDown ? EIO : refused ? EROFS : ENOSPC;
        return -1;
    }
    const int number = ++mCounts[sIsMainThread];
    if (mPlan.fault != Fault::None && mPlan.mainThread == sIsMainThread && mPlan.number == number)
        return goWrong(aOperation);
    const ssize_t result = aCall();
    if (result >= 0)
        record(aOperation);
    return result;
}

ssize_t Medium::goWrong(const Operation& aOperation)
{
    const Inside inside;
    mHit = true;
    mProgressAtHit = mProgress;
    const bool isWrite = aOperation.kind == Operation::Write;
    Operation half = aOperation;
    half.bytes = isWrite ? aOperation.bytes.left(aOperation.bytes.size() / 2) : QByteArray();
    const size_t size = size_t(half.bytes.size());
    if (mPlan.fault == Fault::FullOnce && isWrite &&
        ::pwrite(half.descriptor, half.bytes.constData(), size, half.offset) == ssize_t(size))
        record(half);
    if (mPlan.fault == Fault::Tears && isWrite)
        record(half);
    if (mPlan.fault >= Fault::LosesUnsynced)
        makeImage(mPlan.fault, mPlan.image);
    mDown = mPlan.fault >= Fault::ErrorFromHere;
    const bool needsRoom = isWrite || aOperation.kind == Operation::Create;
    errno = mPlan.fault == Fault::FullOnce && needsRoom ? ENOSPC : EIO;
    return -1;
}

Medium::Names& Medium::changeNames()
{
    mNames.append(mNames.last());
    return mNames.last();
}

void Medium::record(const Operation& aOperation)
{
    using Kind = Operation::Kind;
    const FilePtr file = mOpen.value(aOperation.descriptor);
    switch (aOperation.kind) {
    case Kind::Write:
        file->changes.append({aOperation.offset, aOperation.bytes, false});
        break;
    case Kind::Truncate:
        file->changes.append({aOperation.offset, {}, true});
        break;
    case Kind::Sync:
        recordSync(*file);
        break;
    case Kind::Create:
        changeNames().insert(aOperation.path, std::make_shared<File>());
        break;
    case Kind::Remove:
        changeNames().remove(aOperation.path);
        break;
    case Kind::Rename:
        Names& names = changeNames();
        names.insert(aOperation.newPath, names.take(aOperation.path));
        break;
    }
}

void Medium::recordSync(File& aFile)
{
    if (aFile.isFolder)
        mNames = {mNames.last()};
    for (const Change& change : qAsConst(aFile.changes))
        change.applyTo(aFile.durable);
    aFile.changes.clear();
    aFile.syncedProgress = mProgress;
    noteSyncedLogs();
}

void Medium::noteSyncedLogs()
{
    const Names& durable = mNames.first();
    for (auto name = durable.begin(); name != durable.end(); ++name)
        if (name.key().endsWith("-wal"))
            mSyncedProgress = qMax(mSyncedProgress, name.value()->syncedProgress);
}

void Medium::Change::applyTo(QByteArray& aContent) const
{
    const int end = int(offset) + bytes.size();
    if (aContent.size() < end)
        aContent.append(QByteArray(end - aContent.size(), '\0'));
    if (truncation)
        aContent.truncate(end);
    else
        aContent.replace(int(offset), bytes.size(), bytes);
}

/** Keeps the first or the last sectors of it. */
void Medium::Change::tear(QRandomGenerator& aRandom)
{
    const int sector = int((offset / 512 + 1 + aRandom.bounded(8)) * 512 - offset);
    if (sector >= bytes.size())
        return;
    const bool isHead = aRandom.bounded(2) == 0;
    bytes = isHead ? bytes.left(sector) : bytes.mid(sector);
    offset += isHead ? 0 : sector;
}

/** What a memory map of several processes holds is gone with them. */
void Medium::makeImage(Fault aFault, const QString& aImage)
{
    mRandom.seed(quint32(mCounts[0] + 10000 * mCounts[1]));
    const Names names = aFault == Fault::LosesUnsynced ? mNames.first()
                        : aFault == Fault::Tears       ? mNames.last()
                                                       : mNames.at(int(mRandom.bounded(mNames.size())));
    for (auto name = names.begin(); name != names.end(); ++name) {
        const QByteArray content = survivingContent(*name.value(), aFault);
        QFile file(aImage + QFile::decodeName(name.key().mid(mFolder.size())));
        if (!name.key().endsWith("-shm") &&
            (!file.open(QFile::WriteOnly) || file.write(content) != content.size()))
            qFatal("cannot write '%s'", qUtf8Printable(file.fileName()));
    }
}

/** Changes of the length are in order, as in a file system that keeps a journal: with one, all that follows
 * is lost. */
QByteArray Medium::survivingContent(const File& aFile, Fault aFault)
{
    QByteArray content = aFile.durable;
    // Of the shuffled, from a disk that wrote nothing of this file to one that wrote nearly all.
    const int chance = aFault == Fault::LosesUnsynced ? 0
                       : aFault == Fault::Tears       ? 100
                                                      : int(mRandom.bounded(5)) * 24;
    for (Change change : aFile.changes) {
        const bool kept = int(mRandom.bounded(100)) < chance;
        if (!kept && change.truncation)
            break;
        if (aFault == Fault::Shuffles && mRandom.bounded(4) == 0)
            change.tear(mRandom);
        if (kept)
            change.applyTo(content);
    }
    return content;
}
