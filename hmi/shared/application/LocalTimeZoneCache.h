#pragma once

#include <QByteArray>
#include <QFileSystemWatcher>
#include <QString>
#include <QStringList>
#include <QtGlobal>
#include <array>

namespace Hmi::Shared {

/**
 * Makes conversions to local time cheap for the whole process without losing a change of the system's time
 * zone.
 *
 * While the environment does not set TZ, the C library looks at the zone file anew for every conversion;
 * while TZ names that file it reads it once. So this sets TZ to ":/etc/localtime" and watches the link, every
 * link it leads through and the zone file; when what they lead to was replaced, the C library is made to read
 * it again.
 *
 * A TZ that is set, also to nothing, is left alone, and so is everything when the link's folder cannot be
 * watched. Destruction unsets TZ again unless it was given another value meanwhile.
 *
 * Created on the main thread before other threads run, since it changes the environment. A change of zone is
 * noticed by that thread's event loop. Child processes inherit TZ.
 */
class Q_DECL_EXPORT LocalTimeZoneCache
{
public:
    explicit LocalTimeZoneCache(const QString& aLink = QStringLiteral("/etc/localtime"));
    ~LocalTimeZoneCache();
    Q_DISABLE_COPY_MOVE(LocalTimeZoneCache)

private:
    /** Device, inode and times of the zone file; zeros for none. */
    using Version = std::array<qint64, 4>;

    bool isPinned() const { return qgetenv("TZ") == mPinned; }
    Version readVersion() const;
    QStringList findPathsToWatch() const;
    void watch();
    void refresh();
    void forceReload() const;

    QString mLink;
    QByteArray mPinned;
    Version mVersion{};
    QFileSystemWatcher mWatcher;
};

} // namespace Hmi::Shared
