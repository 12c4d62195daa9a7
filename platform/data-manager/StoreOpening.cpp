#include <platform/data-manager/StoreOpening.h>

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringList>
#include <QTemporaryDir>
#include <QThread>
#include <cstdio>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <platform/data-manager/DataManager.h>
#include <platform/data-manager/MediumSync.h>

namespace DataManager {

/** How long a start may wait for another process that makes the store, in milliseconds. */
static constexpr int BuildingTimeout = 5000;

static const QString sLogSuffix = QStringLiteral("-wal");
static const QString sIndexSuffix = QStringLiteral("-shm");

bool isDamage(int aSqliteCode) { return aSqliteCode == SQLITE_CORRUPT || aSqliteCode == SQLITE_NOTADB; }

/** SQLite would take an empty file or a folder for something to begin with. */
static bool isObviouslyDamaged(const QString& aPath)
{
    const QFileInfo info(aPath);
    return info.exists() && (!info.isFile() || info.size() == 0);
}

static int openAndLoad(const QString& aPath, Durability aDurability, StoreFile& aFile, StoreContent& aContent,
                       QString& aWhy)
{
    if (isObviouslyDamaged(aPath)) {
        aWhy = QStringLiteral("it is empty or no file");
        return SQLITE_NOTADB;
    }
    int code = aFile.open(aPath, aDurability, aWhy);
    if (code != SQLITE_OK)
        return code;
    code = aFile.load(aContent);
    if (code != SQLITE_OK) {
        aWhy = QString::fromUtf8(sqlite3_errstr(code));
        aFile.close();
    }
    return code;
}

bool setStoreAside(const QString& aPath, QString& aWhy)
{
    int number = 1;
    QString aside;
    do
        aside = QStringLiteral("%1.damaged-%2").arg(aPath).arg(number++);
    while (QFileInfo::exists(aside) || QFileInfo::exists(aside + sLogSuffix));
    // The log first: without it the damaged file would be opened, and the log belongs to no other.
    QFile::rename(aPath + sLogSuffix, aside + sLogSuffix);
    QFile::remove(aPath + sIndexSuffix);
    if (std::rename(QFile::encodeName(aPath).constData(), QFile::encodeName(aside).constData()) != 0) {
        aWhy = QStringLiteral("it is damaged and cannot be renamed");
        return false;
    }
    syncFolderOf(aPath);
    qCritical("The settings store '%s' is damaged. It was renamed to '%s', and an empty one takes its place.",
              qUtf8Printable(aPath), qUtf8Printable(aside));
    return true;
}

/** Made under another name, so that no half of a store is ever found. */
static bool buildStore(const QString& aPath, QString& aWhy)
{
    const QString unfinished = aPath + QStringLiteral(".new");
    QFile::remove(unfinished);
    {
        SqliteConnection connection;
        int code = connection.open(unfinished, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
        if (code == SQLITE_OK)
            code = StoreFile::makeLayout(connection);
        if (code != SQLITE_OK) {
            aWhy = QString::fromUtf8(sqlite3_errstr(code));
            connection.close();
            QFile::remove(unfinished);
            return false;
        }
    }
    // What a store that is gone left behind would be taken for the new one's.
    QFile::remove(aPath + sLogSuffix);
    QFile::remove(aPath + sIndexSuffix);
    if (std::rename(QFile::encodeName(unfinished).constData(), QFile::encodeName(aPath).constData()) != 0) {
        aWhy = QStringLiteral("it cannot be made");
        return false;
    }
    syncFolderOf(aPath);
    return true;
}

/** A folder is on the medium when the one that it is in is. */
static bool makeFolder(const QString& aFolder)
{
    QStringList made;
    for (QString folder = aFolder; !QFileInfo::exists(folder); folder = QFileInfo(folder).path())
        made.append(folder);
    if (!QDir().mkpath(aFolder))
        return false;
    for (const QString& folder : qAsConst(made))
        syncFolderOf(folder);
    return true;
}

/**
 * Held by one process at a time. It is of the folder itself, as a file that a process leaves behind when it
 * is killed or the power goes may never be taken for stale.
 */
class FolderLock
{
public:
    explicit FolderLock(const QString& aFolder) :
        mFolder(::open(QFile::encodeName(aFolder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
    {}
    ~FolderLock()
    {
        if (mFolder >= 0)
            ::close(mFolder);
    }
    Q_DISABLE_COPY(FolderLock)

    bool tryLock(int aTimeout)
    {
        const QDeadlineTimer deadline(aTimeout);
        while (::flock(mFolder, LOCK_EX | LOCK_NB) != 0) {
            if (deadline.hasExpired())
                return false;
            QThread::msleep(1);
        }
        return true;
    }

private:
    const int mFolder;
};

/** One process at a time looks again and makes what is missing. */
static OpeningOutcome openExclusively(const StoreConfiguration& aConfiguration, bool aMayWait,
                                      StoreFile& aFile, StoreContent& aContent, QString& aWhy)
{
    const QString& path = aConfiguration.storePath;
    const QString folder = QFileInfo(path).path();
    if (!makeFolder(folder)) {
        aWhy = QStringLiteral("its folder cannot be made");
        return OpeningOutcome::Unavailable;
    }
    FolderLock lock(folder);
    if (!lock.tryLock(aMayWait ? BuildingTimeout : 0)) {
        aWhy = QStringLiteral("its folder cannot be locked");
        return OpeningOutcome::Unavailable;
    }
    if (QFileInfo::exists(path)) {
        const int code = openAndLoad(path, aConfiguration.durability, aFile, aContent, aWhy);
        if (code == SQLITE_OK)
            return OpeningOutcome::Opened;
        if (!isDamage(code) || !setStoreAside(path, aWhy))
            return OpeningOutcome::Unavailable;
    }
    const bool built = buildStore(path, aWhy) &&
                       openAndLoad(path, aConfiguration.durability, aFile, aContent, aWhy) == SQLITE_OK;
    return built ? OpeningOutcome::Built : OpeningOutcome::Unavailable;
}

static void copyWritable(const QString& aFrom, const QString& aTo)
{
    if (QFile::copy(aFrom, aTo))
        QFile::setPermissions(aTo, QFile::ReadOwner | QFile::WriteOwner);
}

StoreContent readStoreCopy(const QString& aPath)
{
    const QTemporaryDir folder;
    const QString copy = folder.filePath(QStringLiteral("copy"));
    copyWritable(aPath, copy);
    copyWritable(aPath + sLogSuffix, copy + sLogSuffix);
    StoreFile file;
    StoreContent content;
    QString why;
    const bool read =
        QFileInfo::exists(copy) && openAndLoad(copy, Durability::Normal, file, content, why) == SQLITE_OK;
    return read ? content : StoreContent::makeEmpty();
}

OpeningOutcome openStore(const StoreConfiguration& aConfiguration, bool aMayWait, StoreFile& aFile,
                         StoreContent& aContent, QString& aWhy)
{
    const QString& path = aConfiguration.storePath;
    if (QFileInfo::exists(path) &&
        openAndLoad(path, aConfiguration.durability, aFile, aContent, aWhy) == SQLITE_OK)
        return OpeningOutcome::Opened;
    aWhy.clear();
    return openExclusively(aConfiguration, aMayWait, aFile, aContent, aWhy);
}

} // namespace DataManager
