#include <hmi/shared/application/modules/PagePrintManager.h>

#include <QDir>
#include <QImage>
#include <QQuickItem>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <tests/support/ExpectedMessages.h>

using Hmi::Shared::PagePrintManager;

namespace {

struct PagePrint : testing::Test
{
    const QTemporaryDir mParent;
    const QDir mFolder{mParent.filePath(QStringLiteral("var/snapshots"))};
    const QString mName = QStringLiteral("page.png");
    QImage mPicture{4, 3, QImage::Format_RGB32};
    PagePrintManager mManager{mFolder.path()};
};

} // namespace

TEST_F(PagePrint, CreatesTheFolderAndReplacesAFileOnlyByAWholePicture)
{
    QStringList printed;
    QStringList failed;
    QObject::connect(&mManager, &PagePrintManager::printed, [&](const QString& path) { printed << path; });
    QObject::connect(&mManager, &PagePrintManager::printFailed, [&](const QString& path) { failed << path; });
    const QString path = mFolder.filePath(mName);
    for (const QRgb color : {qRgb(255, 0, 0), qRgb(0, 0, 255)}) {
        mPicture.fill(color);
        EXPECT_TRUE(mManager.save(mPicture, mName));
        EXPECT_EQ(QImage(path, "PNG").pixel(2, 2), color);
    }
    HmiTest::expectMessageMatching(QtWarningMsg, QStringLiteral(".*page\\.png\": there is no picture\\."));
    EXPECT_FALSE(mManager.save(QImage(), mName));
    EXPECT_EQ(QImage(path).width(), 4);
    EXPECT_EQ(mFolder.entryList(QDir::Files), QStringList{mName});

    const QString folder = mFolder.filePath(QStringLiteral("folder"));
    QDir().mkdir(folder);
    HmiTest::expectMessageMatching(QtWarningMsg, QStringLiteral("Cannot print to .*/folder\": .+"));
    EXPECT_FALSE(mManager.save(mPicture, QStringLiteral("folder")));
    EXPECT_EQ(printed, (QStringList{path, path}));
    EXPECT_EQ(failed, (QStringList{path, folder}));
}

TEST_F(PagePrint, NeverLeavesTheFolderAndPrintsNoItemWithoutAWindow)
{
    QQuickItem item;
    for (const char* name : {"", ".", "..", "../page.png", "/tmp/page.png", "a/b.png", "a\\b.png"}) {
        for (int count = 0; count < 2; ++count)
            HmiTest::expectMessageMatching(QtWarningMsg, QStringLiteral(".*: this is no plain file name\\."));
        EXPECT_FALSE(mManager.print(&item, QLatin1String(name))) << name;
        EXPECT_FALSE(mManager.save(mPicture, QLatin1String(name))) << name;
    }
    HmiTest::expectMessageMatching(QtWarningMsg, QStringLiteral(".*grabToImage: .*"));
    EXPECT_FALSE(mManager.print(&item, mName));
    EXPECT_TRUE(QDir(mParent.path()).isEmpty());
}
