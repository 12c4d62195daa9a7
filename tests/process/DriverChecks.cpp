#include "ChildProcess.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

/** A copy of the driver in a folder of its own, whose configuration and theme bundle a check may damage. */
class Driver : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(QFile::copy(QStringLiteral(HMI_DRIVER), mDriver));
        for (const QString& file : {mConfiguration, mStoreConfiguration, mBundle}) {
            ASSERT_TRUE(QDir().mkpath(QFileInfo(file).path()));
            ASSERT_TRUE(QFile::copy(QStringLiteral(HMI_DRIVER_DATA) + file.mid(mData.size()), file));
        }
    }

    ChildProcess run(const QString& aFilter = QStringLiteral("EventRing.*")) const
    {
        return ChildProcess::run(mDriver, {QStringLiteral("--gtest_filter=") + aFilter});
    }

    static void replace(const QString& aPath, const QByteArray& aContent)
    {
        QFile file(aPath);
        ASSERT_TRUE(file.open(QFile::WriteOnly) && file.write(aContent) == aContent.size());
    }

    QTemporaryDir mFolder;
    const QString mDriver = mFolder.filePath(QStringLiteral("hmi_shared_driver"));
    const QString mData = mFolder.filePath(QStringLiteral("tests/testData/opt/korvex"));
    const QString mConfiguration = mData + QStringLiteral("/etc/hmi_shared_test.ini");
    const QString mStoreConfiguration = mData + QStringLiteral("/etc/DataManagerConf.ini");
    const QString mBundle =
        mData + QStringLiteral("/share/hmi_shared_driver/themes/hmi_shared_test_theme_shared.rcc");
};

} // namespace

TEST_F(Driver, RunsEveryComponentCheckInOneProcessAndSaysWhatItRanWith)
{
    const ChildProcess child = run(QStringLiteral("*"));
    EXPECT_TRUE(child.ended);
    EXPECT_EQ(child.status, 0) << qPrintable(child.output);
    EXPECT_TRUE(child.output.contains(QStringLiteral("Configuration file: ") + mConfiguration));
    for (const char* line :
         {"HmiCore/FontFamilyDefault +file +Open Sans\n", "HmiCore/TouchDragStartDistance +default +10\n",
          "HmiShared/DiagnosticModeEnabled +file +false\n",
          "HmiShared/VoicesPath +default +C:/Projects/R7_Voices/voices\n"})
        EXPECT_TRUE(child.output.contains(QRegularExpression(QString::fromLatin1(line)))) << line;
    EXPECT_TRUE(child.output.contains(
        QRegularExpression(QStringLiteral("Theme bundle: .*\n +/.*theme_shared\\.rcc\n"))));
    EXPECT_TRUE(
        child.output.contains(QRegularExpression(QStringLiteral("Component checks: \\d+ run, 0 failed\n"))));
}

TEST_F(Driver, ReturnsTheFailureOfItsChecks)
{
    // A check that writes files fails where no file may grow.
    const QString command = QStringLiteral("ulimit -f 0; trap '' XFSZ; exec '%1' --gtest_filter=%2")
                                .arg(mDriver, QStringLiteral("ConfigFile.GivesEachKeyItsText"));
    const ChildProcess child = ChildProcess::run(QStringLiteral("/bin/sh"), {QStringLiteral("-c"), command});
    EXPECT_TRUE(child.ended);
    EXPECT_EQ(child.status, 1);
    EXPECT_TRUE(child.output.contains(QStringLiteral("Component checks: 1 run, 1 failed")));
}

TEST_F(Driver, WithoutItsBundleReturnsMinusOneAndRunsNoCheck)
{
    QFile bundle(mBundle);
    ASSERT_TRUE(bundle.open(QFile::ReadOnly));
    const QByteArray good = bundle.readAll();
    bundle.close();
    replace(mBundle, good.left(good.size() / 2));
    const ChildProcess child = run();
    EXPECT_TRUE(child.ended);
    EXPECT_EQ(child.status, 255);
    EXPECT_TRUE(child.output.contains(QStringLiteral("Unable to load 'hmi_shared_test_theme_shared.rcc'")))
        << qPrintable(child.output);
    EXPECT_FALSE(child.output.contains(QStringLiteral("EventRing")));
}

TEST_F(Driver, TellsWhatIsWrongWithItsConfigurationAndGoesOnWithDefaults)
{
    // Without a configuration the theme folder is the default one, so the bundle goes beside the driver.
    ASSERT_TRUE(QFile::rename(mBundle, mFolder.filePath(QStringLiteral("hmi_shared_test_theme_shared.rcc"))));
    ASSERT_TRUE(QFile::remove(mConfiguration));
    const ChildProcess child = run();
    EXPECT_TRUE(child.ended);
    EXPECT_EQ(child.status, 0) << qPrintable(child.output);
    for (const char* line : {"hmi_shared_test\\.ini, could not be loaded because it does not exist\\.",
                             "HmiCore/IntervalPressAndHold +default +800\n"})
        EXPECT_TRUE(child.output.contains(QRegularExpression(QString::fromLatin1(line))))
            << qPrintable(child.output);
}
