#include <hmi/shared/application/modules/PagePrintManager.h>

#include <QDir>
#include <QFile>
#include <QImage>
#include <QQuickItem>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <tests/support/ExpectedMessages.h>

using Hmi::Shared::PagePrintManager;

namespace {

struct PagePrint : testing::Test
{
    void watch(PagePrintManager& aManager)
    {
        QObject::connect(&aManager, &PagePrintManager::printed,
                         [this](const QString& aPath) { mPrinted.append(aPath); });
        QObject::connect(&aManager, &PagePrintManager::printFailed,
                         [this](const QString& aPath) { mFailed.append(aPath); });
    }

    static QImage picture(QRgb aColor)
    {
        QImage image(4, 3, QImage::Format_RGB32);
        image.fill(aColor);
        return image;
    }

    QTemporaryDir mDirectory;
    QStringList mPrinted;
    QStringList mFailed;
};

} // namespace

TEST_F(PagePrint, CreatesTheFolderAndReplacesAFileOfTheSameName)
{
    PagePrintManager manager(mDirectory.filePath(QStringLiteral("var/snapshots")));
    watch(manager);
    const QString path = mDirectory.filePath(QStringLiteral("var/snapshots/page.png"));
    for (const QRgb color : {qRgb(255, 0, 0), qRgb(0, 0, 255)}) {
        EXPECT_TRUE(manager.save(picture(color), QStringLiteral("page.png")));
        EXPECT_EQ(QImage(path, "PNG").pixel(2, 2), color);
    }
    EXPECT_EQ(mPrinted, (QStringList{path, path}));
    EXPECT_EQ(QDir(manager.getFilePath(QString())).entryList(QDir::Files).size(), 1);
}

TEST_F(PagePrint, ReportsAPictureThatCannotBeWrittenAndKeepsTheOldFile)
{
    PagePrintManager manager(mDirectory.path());
    ASSERT_TRUE(manager.save(picture(qRgb(1, 2, 3)), QStringLiteral("page.png")));
    watch(manager);
    HmiTest::expectMessageMatching(QtWarningMsg, QStringLiteral(".*page\\.png\": there is no picture\\."));
    EXPECT_FALSE(manager.save(QImage(), QStringLiteral("page.png")));
    EXPECT_EQ(QImage(manager.getFilePath(QStringLiteral("page.png"))).width(), 4);

    PagePrintManager behindAFile(manager.getFilePath(QStringLiteral("page.png")));
    watch(behindAFile);
    HmiTest::expectMessageMatching(QtWarningMsg,
                                   QStringLiteral("Cannot print to .*page\\.png/other\\.png\": .+"));
    EXPECT_FALSE(behindAFile.save(picture(0), QStringLiteral("other.png")));
    EXPECT_EQ(mFailed, (QStringList{manager.getFilePath(QStringLiteral("page.png")),
                                    behindAFile.getFilePath(QStringLiteral("other.png"))}));
    EXPECT_TRUE(mPrinted.isEmpty());
}

TEST_F(PagePrint, NeverLeavesTheFolder)
{
    PagePrintManager manager(mDirectory.filePath(QStringLiteral("snapshots")));
    watch(manager);
    QQuickItem item;
    const char* const names[] = {"", ".", "..", "../page.png", "/tmp/page.png", "a/b.png", "a\\b.png"};
    for (const char* const name : names) {
        HmiTest::expectMessageMatching(QtWarningMsg, QStringLiteral(".*: this is no plain file name\\."));
        EXPECT_FALSE(manager.print(&item, QLatin1String(name))) << name;
        HmiTest::expectMessageMatching(QtWarningMsg, QStringLiteral(".*: this is no plain file name\\."));
        EXPECT_FALSE(manager.save(picture(0), QLatin1String(name))) << name;
    }
    EXPECT_TRUE(QDir(mDirectory.path()).isEmpty());
}

TEST_F(PagePrint, PrintsNothingButItemsAndWindows)
{
    PagePrintManager manager(mDirectory.path());
    watch(manager);
    QObject other;
    for (QObject* const object : {static_cast<QObject*>(nullptr), &other}) {
        HmiTest::expectWarning(
            QStringLiteral("Cannot print to \"page.png\": the object is no item and no window."));
        EXPECT_FALSE(manager.print(object, QStringLiteral("page.png")));
    }
    HmiTest::expectMessageMatching(QtWarningMsg, QStringLiteral(".*grabToImage: .*"));
    QQuickItem withoutWindow;
    EXPECT_FALSE(manager.print(&withoutWindow, QStringLiteral("page.png")));
    EXPECT_TRUE(mFailed.isEmpty());
}
