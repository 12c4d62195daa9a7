#include <hmi/core/foundation/HmiCoreConfigs.h>

#include <QCoreApplication>
#include <QRegularExpression>

#include <hmi/core/foundation/ConfigManager.h>

namespace Hmi::Core {

namespace Key {
static const QString AlphaChannelEnabled = QStringLiteral("HmiCore/AlphaChannelEnabled");
static const QString FontFamilyDefault = QStringLiteral("HmiCore/FontFamilyDefault");
static const QString GnuBindir = QStringLiteral("HmiCore/GnuBindir");
static const QString GnuDatadir = QStringLiteral("HmiCore/GnuDatadir");
static const QString GnuLibdir = QStringLiteral("HmiCore/GnuLibdir");
static const QString GnuLocalstatedir = QStringLiteral("HmiCore/GnuLocalstatedir");
static const QString GnuPrefix = QStringLiteral("HmiCore/GnuPrefix");
static const QString GnuSysconfdir = QStringLiteral("HmiCore/GnuSysconfdir");
static const QString HighlightSystemEnabled = QStringLiteral("HmiCore/HighlightSystemEnabled");
static const QString IntervalPressAndHold = QStringLiteral("HmiCore/IntervalPressAndHold");
static const QString ItemIdentifierEnabled = QStringLiteral("HmiCore/ItemIdentifierEnabled");
static const QString KeyboardsPath = QStringLiteral("HmiCore/KeyboardsPath");
static const QString LanguagesPath = QStringLiteral("HmiCore/LanguagesPath");
static const QString PrimaryDisplayIndex = QStringLiteral("HmiCore/PrimaryDisplayIndex");
static const QString PrimaryDisplayResolution = QStringLiteral("HmiCore/PrimaryDisplayResolution");
static const QString ResourceCachePath = QStringLiteral("HmiCore/ResourceCachePath");
static const QString SecondaryDisplayIndex = QStringLiteral("HmiCore/SecondaryDisplayIndex");
static const QString SecondaryDisplayResolution = QStringLiteral("HmiCore/SecondaryDisplayResolution");
static const QString StringDatabaseName = QStringLiteral("HmiCore/StringDatabaseName");
static const QString SuggestionsPath = QStringLiteral("HmiCore/SuggestionsPath");
static const QString SuggestionsUserWordsLimit = QStringLiteral("HmiCore/SuggestionsUserWordsLimit");
static const QString ThemesPath = QStringLiteral("HmiCore/ThemesPath");
static const QString TouchDragStartDistance = QStringLiteral("HmiCore/TouchDragStartDistance");
static const QString UseSecondaryDisplay = QStringLiteral("HmiCore/UseSecondaryDisplay");
static const QString WindowState = QStringLiteral("HmiCore/WindowState");
static const QString WindowStaysOnTopHint = QStringLiteral("HmiCore/WindowStaysOnTopHint");
} // namespace Key

static QList<QSize> resolutions(const QString& aList, const QString& aKey)
{
    static const QRegularExpression aroundSign(QStringLiteral("(?<=\\d)\\s*[xX]\\s*(?=\\d)"));
    static const QRegularExpression separator(QStringLiteral("[,;\\s]+"));
    static const QRegularExpression size(QStringLiteral("^([1-9]\\d{0,4})x([1-9]\\d{0,4})$"));
    QList<QSize> result;
    const QStringList list =
        QString(aList).replace(aroundSign, QStringLiteral("x")).split(separator, Qt::SkipEmptyParts);
    for (const QString& entry : list) {
        const QRegularExpressionMatch match = size.match(entry);
        if (match.hasMatch())
            result.append(QSize(match.capturedRef(1).toInt(), match.capturedRef(2).toInt()));
        else
            qWarning("Invalid resolution \"%s\" listed for %s\n", qPrintable(entry), qPrintable(aKey));
    }
    return result;
}

HmiCoreConfigs::HmiCoreConfigs() : HmiCoreConfigs(*ConfigManager::instance()) {}

HmiCoreConfigs::HmiCoreConfigs(ConfigManager& aConfig) : ConfigFacade(aConfig)
{
    addPath(Key::GnuPrefix, QStringLiteral("usr/local"));
    const QString prefix = getGnuPrefix();
    addPath(Key::GnuBindir, prefix + QStringLiteral("/bin"));
    addPath(Key::GnuLibdir, prefix + QStringLiteral("/lib"));
    addPath(Key::GnuLocalstatedir, prefix + QStringLiteral("/var"));
    addPath(Key::GnuSysconfdir, prefix + QStringLiteral("/etc"));
    addPath(Key::GnuDatadir, prefix + QStringLiteral("/share"));

    const QString application = QCoreApplication::applicationName();
    const QString data = getGnuDatadir() + QLatin1Char('/') + application + QLatin1Char('/');
    addPath(Key::KeyboardsPath, data + QStringLiteral("keyboards"));
    addPath(Key::LanguagesPath, data + QStringLiteral("languages"));
    addPath(Key::SuggestionsPath, data + QStringLiteral("suggestions"));
    addPath(Key::ThemesPath, data + QStringLiteral("themes"));
    const QString state = getGnuLocalstatedir() + QLatin1Char('/') + application;
    addPath(Key::StringDatabaseName, state + QStringLiteral("_strings.db"));
    addPath(Key::ResourceCachePath, state + QStringLiteral("/resource_cache/"));

    addValue(Key::AlphaChannelEnabled, false);
    addValue(Key::FontFamilyDefault, QStringLiteral("Open Sans"));
    addValue(Key::HighlightSystemEnabled, false);
    addValue(Key::IntervalPressAndHold, 800);
    addValue(Key::ItemIdentifierEnabled, false);
    addValue(Key::PrimaryDisplayIndex, 0);
    addValue(Key::SecondaryDisplayIndex, 1);
    addValue(Key::PrimaryDisplayResolution, QString());
    addValue(Key::SecondaryDisplayResolution, QString());
    addValue(Key::SuggestionsUserWordsLimit, 2000);
    addValue(Key::TouchDragStartDistance, 10);
    addValue(Key::UseSecondaryDisplay, false);
    addValue(Key::WindowState, QStringLiteral("WindowNoState"));
    addValue(Key::WindowStaysOnTopHint, false);
}

bool HmiCoreConfigs::getAlphaChannelEnabled() const { return flag(Key::AlphaChannelEnabled); }

QString HmiCoreConfigs::getFontFamilyDefault() const { return text(Key::FontFamilyDefault); }

QString HmiCoreConfigs::getGnuBindir() const { return path(Key::GnuBindir); }

QString HmiCoreConfigs::getGnuDatadir() const { return path(Key::GnuDatadir); }

QString HmiCoreConfigs::getGnuLibdir() const { return path(Key::GnuLibdir); }

QString HmiCoreConfigs::getGnuLocalstatedir() const { return path(Key::GnuLocalstatedir); }

QString HmiCoreConfigs::getGnuPrefix() const { return path(Key::GnuPrefix); }

QString HmiCoreConfigs::getGnuSysconfdir() const { return path(Key::GnuSysconfdir); }

bool HmiCoreConfigs::getHighlightSystemEnabled() const { return flag(Key::HighlightSystemEnabled); }

int HmiCoreConfigs::getIntervalPressAndHold() const { return number(Key::IntervalPressAndHold); }

bool HmiCoreConfigs::getItemIdentifierEnabled() const { return flag(Key::ItemIdentifierEnabled); }

QString HmiCoreConfigs::getKeyboardsPath() const { return path(Key::KeyboardsPath); }

QString HmiCoreConfigs::getLanguagesPath() const { return path(Key::LanguagesPath); }

int HmiCoreConfigs::getPrimaryDisplayIndex() const { return number(Key::PrimaryDisplayIndex); }

int HmiCoreConfigs::getSecondaryDisplayIndex() const { return number(Key::SecondaryDisplayIndex); }

QList<QSize> HmiCoreConfigs::getPrimaryDisplayResolution() const
{
    return resolutions(text(Key::PrimaryDisplayResolution), Key::PrimaryDisplayResolution);
}

QList<QSize> HmiCoreConfigs::getSecondaryDisplayResolution() const
{
    return resolutions(text(Key::SecondaryDisplayResolution), Key::SecondaryDisplayResolution);
}

QString HmiCoreConfigs::getStringDatabaseName() const { return path(Key::StringDatabaseName); }

int HmiCoreConfigs::getSuggestionsUserWordsLimit() const { return number(Key::SuggestionsUserWordsLimit); }

QString HmiCoreConfigs::getSuggestionsPath() const { return path(Key::SuggestionsPath); }

QString HmiCoreConfigs::getThemesPath() const { return path(Key::ThemesPath); }

QString HmiCoreConfigs::getResourceCachePath() const { return path(Key::ResourceCachePath); }

int HmiCoreConfigs::getTouchDragStartDistance() const { return number(Key::TouchDragStartDistance); }

bool HmiCoreConfigs::getUseSecondaryDisplay() const { return flag(Key::UseSecondaryDisplay); }

QString HmiCoreConfigs::getWindowState() const { return text(Key::WindowState); }

bool HmiCoreConfigs::getWindowStaysOnTopHint() const { return flag(Key::WindowStaysOnTopHint); }

} // namespace Hmi::Core
