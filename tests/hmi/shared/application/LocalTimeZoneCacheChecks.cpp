#include <hmi/shared/application/LocalTimeZoneCache.h>

#include <QCoreApplication>
#include <QDateTime>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <cstdio>
#include <gtest/gtest.h>

using Hmi::Shared::LocalTimeZoneCache;

namespace {

class LocalTimeZoneCacheFolder : public testing::Test
{
protected:
    LocalTimeZoneCacheFolder() { qunsetenv("TZ"); }
    ~LocalTimeZoneCacheFolder() override
    {
        if (mOldTz.isNull())
            qunsetenv("TZ");
        else
            qputenv("TZ", mOldTz);
    }

    QString path(const char* aName) const { return mFolder.filePath(QLatin1String(aName)); }

    /** A zone file of one fixed offset, in the layout that zone compilers write. */
    QString createZone(const char* aName, char aHours) const
    {
        QFile file(path(aName));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        const int offset = aHours * 3600;
        file.write("TZif" + QByteArray(32, '\0') + QByteArray("\0\0\0\1\0\0\0\4", 8));
        file.write(QByteArray(1, '\0') + char(offset >> 16) + char(offset >> 8) + char(offset));
        file.write("\0\0LOC", 6);
        file.flush();
        // The C library tells files apart by inode and second; an inode may be that of a file of another
        // check.
        file.setFileTime(QDateTime::fromSecsSinceEpoch(aHours), QFile::FileModificationTime);
        return file.fileName();
    }

    /** As time zone tools do it: a new link is moved over the old one. */
    void replaceLink(const char* aName, const QString& aTarget) const
    {
        QFile::link(aTarget, path("new"));
        ASSERT_EQ(std::rename(qPrintable(path("new")), qPrintable(path(aName))), 0);
    }

    static int hoursFromUtc() { return QDateTime::currentDateTime().offsetFromUtc() / 3600; }

    static bool waitForHours(int aHours)
    {
        const QDeadlineTimer deadline(10000);
        while (hoursFromUtc() != aHours && !deadline.hasExpired())
            QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
        return hoursFromUtc() == aHours;
    }

    QTemporaryDir mFolder;
    QByteArray mOldTz = qgetenv("TZ");
};

TEST_F(LocalTimeZoneCacheFolder, FollowsTheLinkAndTheLinksBehindIt)
{
    for (const char* folder : {"a", "b", "c", "d"})
        QDir().mkdir(path(folder));
    const QString three = createZone("c/zone", 3);
    const QString five = createZone("d/zone", 5);
    replaceLink("b/link", three);
    const LocalTimeZoneCache cache(path("a/link"));
    EXPECT_EQ(hoursFromUtc(), 0) << "without a link";
    replaceLink("a/link", path("b/link"));
    EXPECT_TRUE(waitForHours(3)) << "link created";
    replaceLink("b/link", five);
    EXPECT_TRUE(waitForHours(5)) << "second link replaced";
    ASSERT_EQ(std::rename(qPrintable(createZone("newer", 7)), qPrintable(five)), 0);
    EXPECT_TRUE(waitForHours(7)) << "zone file replaced";
    replaceLink("a/link", three);
    EXPECT_TRUE(waitForHours(3)) << "first link replaced";
    EXPECT_EQ(qgetenv("TZ"), ":" + QFile::encodeName(path("a/link")));
}

TEST_F(LocalTimeZoneCacheFolder, LeavesTheEnvironmentAsItFoundIt)
{
    {
        const LocalTimeZoneCache cache(path("link"));
        EXPECT_TRUE(qEnvironmentVariableIsSet("TZ"));
    }
    EXPECT_FALSE(qEnvironmentVariableIsSet("TZ"));
    {
        const LocalTimeZoneCache cache(path("no/folder/link"));
        EXPECT_FALSE(qEnvironmentVariableIsSet("TZ"));
    }
    qputenv("TZ", "XYZ-4");
    {
        const LocalTimeZoneCache cache(path("link"));
        EXPECT_EQ(hoursFromUtc(), 4);
    }
    EXPECT_EQ(qgetenv("TZ"), "XYZ-4");
}

} // namespace
