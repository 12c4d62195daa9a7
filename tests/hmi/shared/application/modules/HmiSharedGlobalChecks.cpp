#include <hmi/shared/application/modules/HmiSharedGlobal.h>

#include <QLocale>
#include <gtest/gtest.h>
#include <hmi/core/foundation/HmiCoreConfigs.h>
#include <hmi/shared/application/modules/PagePrintManager.h>
#include <tests/support/ExpectedMessages.h>

using Hmi::Shared::HmiSharedGlobal;
using Hmi::Shared::PagePrintManager;

namespace {

struct SharedGlobal : testing::Test
{
    // Before the first check listens: creating the configuration logs its resources path.
    static void SetUpTestSuite()
    {
        Hmi::Core::HmiCoreConfigs::instance();
        HmiSharedGlobal::instance();
    }

    ~SharedGlobal() override { QLocale::setDefault(mLocale); }

    const QLocale mLocale;
};

} // namespace

TEST_F(SharedGlobal, ComparesAsAReaderOfTheCurrentLocaleDoes)
{
    const struct
    {
        const char* locale;
        QString lower;
        QString higher;
    } rows[] = {
        {"de_DE", QStringLiteral("\u00e4hre"), QStringLiteral("zaun")},
        {"sv_SE", QStringLiteral("zon"), QStringLiteral("\u00e4ng")},
        {"de_DE", QStringLiteral("\u00e4ng"), QStringLiteral("zon")},
        {"en_US", QStringLiteral("Track 9"), QStringLiteral("track 10")},
    };
    for (const auto& row : rows) {
        QLocale::setDefault(QLocale(QLatin1String(row.locale)));
        EXPECT_LT(HmiSharedGlobal::instance()->localeAwareCompare(row.lower, row.higher), 0) << row.locale;
        EXPECT_GT(HmiSharedGlobal::instance()->localeAwareCompare(row.higher, row.lower), 0) << row.locale;
        EXPECT_EQ(HmiSharedGlobal::instance()->localeAwareCompare(row.lower, row.lower), 0) << row.locale;
    }
}

TEST_F(SharedGlobal, NamesAScreenshotAfterItsTimeAndReturnsNoPathWithoutAWindow)
{
    HmiTest::expectMessageMatching(
        QtWarningMsg,
        QStringLiteral("Cannot print to \"screenshot-\\d{4}(-\\d\\d){2}(_\\d\\d){3}_\\d{3}\\.png\": .*"));
    EXPECT_EQ(HmiSharedGlobal::instance()->saveScreenshot(nullptr), QString());
    delete PagePrintManager::instance();
}
