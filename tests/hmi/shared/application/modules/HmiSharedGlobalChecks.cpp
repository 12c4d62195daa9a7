#include <hmi/shared/application/modules/HmiSharedGlobal.h>

#include <QLocale>
#include <gtest/gtest.h>

using Hmi::Shared::HmiSharedGlobal;

TEST(HmiSharedGlobal, ComparesAsAReaderOfTheCurrentLocaleDoes)
{
    const QString rows[][3] = {
        {QStringLiteral("sv_SE"), QStringLiteral("zon"), QStringLiteral("\u00e4ng")},
        {QStringLiteral("de_DE"), QStringLiteral("\u00e4ng"), QStringLiteral("zon")},
        {QStringLiteral("en_US"), QStringLiteral("Track 9"), QStringLiteral("track 10")},
    };
    const QLocale old;
    for (const auto& [locale, lower, higher] : rows) {
        QLocale::setDefault(QLocale(locale));
        EXPECT_LT(HmiSharedGlobal::instance()->localeAwareCompare(lower, higher), 0) << qPrintable(locale);
        EXPECT_GT(HmiSharedGlobal::instance()->localeAwareCompare(higher, lower), 0) << qPrintable(locale);
    }
    QLocale::setDefault(old);
}
