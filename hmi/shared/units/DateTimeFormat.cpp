#include <hmi/shared/units/DateTimeFormat.h>

#include <QHash>

namespace Hmi::Shared {

QLocale::Language DateTimeFormat::languageOf(const QString& aCode)
{
    // Made when it is first looked into. The country counts for nothing: "en_GB" and "en_US" format alike.
    static const QHash<QString, QLocale::Language> smLanguagetoLocale = {
        {QStringLiteral("af_ZA"), QLocale::Afrikaans},
        {QStringLiteral("ar_EG"), QLocale::Arabic},
        {QStringLiteral("bg_BG"), QLocale::Bulgarian},
        {QStringLiteral("cs_CZ"), QLocale::Czech},
        {QStringLiteral("da_DK"), QLocale::Danish},
        {QStringLiteral("de_DE"), QLocale::German},
        {QStringLiteral("el_GR"), QLocale::Greek},
        {QStringLiteral("en_AU"), QLocale::English},
        {QStringLiteral("en_GB"), QLocale::English},
        {QStringLiteral("en_IN"), QLocale::English},
        {QStringLiteral("en_US"), QLocale::English},
        {QStringLiteral("es_ES"), QLocale::Spanish},
        {QStringLiteral("et_EE"), QLocale::Estonian},
        {QStringLiteral("fi_FI"), QLocale::Finnish},
        {QStringLiteral("fr_CA"), QLocale::French},
        {QStringLiteral("fr_FR"), QLocale::French},
        {QStringLiteral("he_IL"), QLocale::Hebrew},
        {QStringLiteral("hr_HR"), QLocale::Croatian},
        {QStringLiteral("hu_HU"), QLocale::Hungarian},
        {QStringLiteral("id_ID"), QLocale::Indonesian},
        {QStringLiteral("it_IT"), QLocale::Italian},
        {QStringLiteral("ja_JP"), QLocale::Japanese},
        {QStringLiteral("ko_KR"), QLocale::Korean},
        {QStringLiteral("lt_LT"), QLocale::Lithuanian},
        {QStringLiteral("lv_LV"), QLocale::Latvian},
        {QStringLiteral("nl_NL"), QLocale::Dutch},
        {QStringLiteral("nn_NO"), QLocale::NorwegianNynorsk},
        {QStringLiteral("pl_PL"), QLocale::Polish},
        {QStringLiteral("pt_BR"), QLocale::Portuguese},
        {QStringLiteral("pt_PT"), QLocale::Portuguese},
        {QStringLiteral("ro_RO"), QLocale::Romanian},
        {QStringLiteral("ru_RU"), QLocale::Russian},
        {QStringLiteral("sk_SK"), QLocale::Slovak},
        {QStringLiteral("sl_SI"), QLocale::Slovenian},
        {QStringLiteral("sr_RS"), QLocale::Serbian},
        {QStringLiteral("sv_SE"), QLocale::Swedish},
        {QStringLiteral("th_TH"), QLocale::Thai},
        {QStringLiteral("tr_TR"), QLocale::Turkish},
        {QStringLiteral("uk_UA"), QLocale::Ukrainian},
        {QStringLiteral("zh_CN"), QLocale::Chinese},
        {QStringLiteral("zh_TW"), QLocale::Chinese},
    };
    return smLanguagetoLocale.value(aCode, QLocale::AnyLanguage);
}

} // namespace Hmi::Shared
