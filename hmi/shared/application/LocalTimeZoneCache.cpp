#include <hmi/shared/application/LocalTimeZoneCache.h>

#include <QFile>
#include <QFileInfo>
#include <QObject>
#include <ctime>
#include <sys/stat.h>

namespace Hmi::Shared {

LocalTimeZoneCache::LocalTimeZoneCache(const QString& aLink) :
    mLink(aLink), mPinned(":" + QFile::encodeName(aLink))
{
    if (qEnvironmentVariableIsSet("TZ"))
        return;
    watch();
    if (!mWatcher.directories().contains(QFileInfo(mLink).path()))
        return;
    mVersion = readVersion();
    qputenv("TZ", mPinned);
    ::tzset();
    const auto refreshed = [this] { refresh(); };
    QObject::connect(&mWatcher, &QFileSystemWatcher::directoryChanged, &mWatcher, refreshed);
    QObject::connect(&mWatcher, &QFileSystemWatcher::fileChanged, &mWatcher, refreshed);
}

LocalTimeZoneCache::~LocalTimeZoneCache()
{
    if (!mWatcher.directories().isEmpty() && isPinned())
        qunsetenv("TZ");
}

LocalTimeZoneCache::Version LocalTimeZoneCache::readVersion() const
{
    struct stat file;
    if (::stat(QFile::encodeName(mLink).constData(), &file) != 0)
        return {};
    return {static_cast<qint64>(file.st_dev), static_cast<qint64>(file.st_ino), file.st_mtim.tv_sec,
            file.st_mtim.tv_nsec};
}

QStringList LocalTimeZoneCache::findPathsToWatch() const
{
    // Bounded, since links may lead in a circle.
    constexpr int MaximumLinks = 8;
    QStringList paths;
    QString path = mLink;
    for (int links = 0; links < MaximumLinks && !path.isEmpty(); ++links) {
        paths << QFileInfo(path).path();
        path = QFile::symLinkTarget(path);
    }
    return paths << mLink;
}

void LocalTimeZoneCache::watch()
{
    const QStringList watched = mWatcher.directories() + mWatcher.files();
    if (!watched.isEmpty())
        mWatcher.removePaths(watched);
    mWatcher.addPaths(findPathsToWatch());
}

void LocalTimeZoneCache::refresh()
{
    watch();
    const Version version = readVersion();
    if (version == mVersion || !isPinned())
        return;
    mVersion = version;
    forceReload();
}

void LocalTimeZoneCache::forceReload() const
{
    // A file is read again only when TZ differs from the last time. It passes through another name of the
    // same file and back, since Qt knows ":/etc/localtime" as the system's zone and would take the other for
    // a zone's name.
    const QFileInfo link(mLink);
    qputenv("TZ", ":" + QFile::encodeName(link.path() + QLatin1String("/./") + link.fileName()));
    ::tzset();
    qputenv("TZ", mPinned);
    ::tzset();
}

} // namespace Hmi::Shared
