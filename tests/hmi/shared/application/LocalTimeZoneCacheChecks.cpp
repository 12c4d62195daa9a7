#include <hmi/shared/application/LocalTimeZoneCache.h>

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <cstdio>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <memory>
#include <sys/stat.h>
#include <tuple>
#include <utility>

#include <tests/support/FilesAndWaits.h>

using Hmi::Shared::LocalTimeZoneCache;

namespace {

struct LocalTimeZoneCacheFolder : testing::Test
{
    LocalTimeZoneCacheFolder() { qunsetenv("TZ"); }
    ~LocalTimeZoneCacheFolder() override { mOldTz.isNull() ? qunsetenv("TZ") : qputenv("TZ", mOldTz); }

    QString path(const char* aName) const { return mFolder.filePath(QLatin1String(aName)); }

    /** A zone file of one fixed offset, in the layout that zone compilers write. */
    QString createZone(const char* aName, char aHours) const
    {
        QFile file(path(aName));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        const int offset = aHours * 3600;
        file.write("TZif" + QByteArray(32, '\0') + QByteArray("\0\0\0\1\0\0\0\4", 8));
        file.write(QByteArray(1, '\0') + char(offset >> 16) + char(offset >> 8) + char(offset) +
                   QByteArray("\0\0LOC", 6));
        file.flush();
        // The C library tells files apart by inode and second; an inode may be that of a file of another
        // check. These seconds no longer fit into 32 bits.
        const timespec times[] = {{0, UTIME_OMIT}, {(qint64(1) << 31) + aHours, 0}};
        EXPECT_EQ(::utimensat(AT_FDCWD, QFile::encodeName(file.fileName()).constData(), times, 0), 0);
        return file.fileName();
    }

    static bool waitForHours(int aHours)
    {
        return HmiTest::waitUntil(
            [aHours] { return QDateTime::currentDateTime().offsetFromUtc() == aHours * 3600; });
    }

    const QTemporaryDir mFolder;
    const QByteArray mOldTz = qgetenv("TZ");
};

TEST_F(LocalTimeZoneCacheFolder, FollowsTheLinkAndTheLinksBehindIt)
{
    for (const char* folder : {"a", "b", "c", "d"})
        QDir().mkdir(path(folder));
    const QString three = createZone("c/zone", 3);
    const QString five = createZone("d/zone", 5);
    QFile::link(three, path("b/link"));
    const LocalTimeZoneCache cache(path("a/link"));
    EXPECT_TRUE(waitForHours(0)) << "without a link";
    const std::tuple<const char*, QString, int> links[] = {
        {"a/link", path("b/link"), 3}, {"b/link", five, 5}, {"a/link", three, 3}, {"a/link", five, 5}};
    for (const auto& [link, target, hours] : links) {
        // As time zone tools do it: the new link is moved over the old one.
        QFile::link(target, path("new"));
        EXPECT_EQ(std::rename(qPrintable(path("new")), qPrintable(path(link))), 0);
        EXPECT_TRUE(waitForHours(hours)) << link;
    }
    EXPECT_EQ(std::rename(qPrintable(createZone("new", 7)), qPrintable(five)), 0);
    EXPECT_TRUE(waitForHours(7)) << "zone file replaced";
}

TEST_F(LocalTimeZoneCacheFolder, LeavesTheEnvironmentAsItFoundIt)
{
    const std::pair<const char*, QByteArray> rows[] = {{"link", ":" + QFile::encodeName(path("link"))},
                                                       {"no/folder/link", QByteArray()}};
    for (const auto& [link, pinned] : rows) {
        auto cache = std::make_unique<LocalTimeZoneCache>(path(link));
        EXPECT_EQ(qgetenv("TZ"), pinned);
        cache.reset();
        EXPECT_FALSE(qEnvironmentVariableIsSet("TZ")) << link;
    }
    qputenv("TZ", "XYZ-4");
    std::make_unique<LocalTimeZoneCache>(path("link")).reset();
    EXPECT_EQ(qgetenv("TZ"), "XYZ-4");
}

} // namespace
