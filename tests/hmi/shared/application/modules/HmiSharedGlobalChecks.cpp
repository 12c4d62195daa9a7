#include <hmi/shared/application/modules/HmiSharedGlobal.h>

#include <QLocale>
#include <array>
#include <gtest/gtest.h>
#include <hmi/core/foundation/HmiCoreConfigs.h>
#include <hmi/core/language/LanguageManager.h>

using Hmi::Shared::HmiSharedGlobal;

namespace {

struct SharedGlobal : testing::Test
{
    // Before the first check listens: creating the configuration logs its resources path.
    static void SetUpTestSuite()
    {
        Hmi::Core::HmiCoreConfigs::instance();
        HmiSharedGlobal::instance();
    }

    void TearDown() override
    {
        QLocale::setDefault(mLocale);
        mLanguages->setCurrentLanguage(mLanguage);
    }

    HmiSharedGlobal* const mGlobal = HmiSharedGlobal::instance();
    const QLocale mLocale;
    Hmi::Core::LanguageManager* const mLanguages = Hmi::Core::LanguageManager::instance();
    const QString mLanguage = mLanguages->getCurrentLanguage();
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
        EXPECT_LT(mGlobal->localeAwareCompare(row.lower, row.higher), 0) << row.locale;
        EXPECT_GT(mGlobal->localeAwareCompare(row.higher, row.lower), 0) << row.locale;
        EXPECT_EQ(mGlobal->localeAwareCompare(row.lower, row.lower), 0) << row.locale;
    }
}

TEST_F(SharedGlobal, FormatsInTheLanguageOfTheCallElseOfTheHmi)
{
    const std::array<const char*, 6> rows[] = {
        {"sv_SE", "en_US", "", "2014-12-09T15:19:29Z", "-18000", "10:19 09 December 2014 UTC"},
        {"sv_SE", "en_US", "it_IT", "2014-07-09T15:19:29+02:00", "3600", "14:19 09 luglio 2014 UTC"},
        {"sv_SE", "en_US", "", "2014-07-09T15:19:29+02:00", "", "15:19 09 July 2014 UTC+02:00"},
        {"sv_SE", "de_DE", "", "1900-01-01T00:10:00Z", "-3600", "23:10 31 Dezember 1899 UTC"},
        {"sv_SE", "de_AT", "", "2150-12-31T23:30:00Z", "50400", "13:30 01 January 2151 UTC"},
    };
    for (const auto& [defaultLocale, current, asked, iso, offset, text] : rows) {
        QLocale::setDefault(QLocale(QLatin1String(defaultLocale)));
        mLanguages->setCurrentLanguage(QLatin1String(current));
        const QDateTime time = QDateTime::fromString(QLatin1String(iso), Qt::ISODate);
        EXPECT_EQ(mGlobal->formatDateTime(time, QStringLiteral("hh:mm dd MMMM yyyy t"), *offset != 0,
                                          std::atoi(offset), QLatin1String(asked)),
                  QLatin1String(text));
    }
    EXPECT_EQ(mGlobal->formatDateTime(QDateTime(QDate(), QTime(1, 2)), QStringLiteral("yyyy"), true),
              QString());
}

TEST_F(SharedGlobal, KnowsTheLanguageOfEachCode)
{
    const QString codes = QStringLiteral("af_ZA ar_EG bg_BG cs_CZ da_DK de_DE el_GR en_AU en_GB en_IN en_US "
                                         "es_ES et_EE fi_FI fr_CA fr_FR he_IL "
                                         "hr_HR hu_HU id_ID it_IT ja_JP ko_KR lt_LT lv_LV nl_NL nn_NO pl_PL "
                                         "pt_BR pt_PT ro_RO ru_RU sk_SK sl_SI "
                                         "sr_RS sv_SE th_TH tr_TR uk_UA zh_CN zh_TW");
    for (const QString& code : codes.split(QLatin1Char(' ')))
        EXPECT_EQ(mGlobal->convertLanguage(code), QLocale(code).language()) << qPrintable(code);
    EXPECT_EQ(mGlobal->convertLanguage(QStringLiteral("en_ZA")), QLocale::AnyLanguage);
}
