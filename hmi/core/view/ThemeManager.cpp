#include <hmi/core/view/ThemeManager.h>

#include <QDir>
#include <QFileInfo>

#include <hmi/core/foundation/HmiCoreConfigs.h>
#include <hmi/core/resources/ResourceManager.h>

namespace Hmi::Core {

static QString bundleName(const QString& aTheme) { return aTheme + QStringLiteral(".rcc"); }

static QStringList findThemes(const QString& aThemesPath)
{
    QStringList themes;
    const QStringList files = QDir(aThemesPath).entryList({bundleName(QStringLiteral("*"))}, QDir::Files);
    for (const QString& file : files)
        themes.append(QFileInfo(file).completeBaseName());
    themes.sort();
    return themes;
}

static ThemeManager::Registrar processRegistrar()
{
    return {[](const QString& file) { return ResourceManager::instance()->registerResource(file); },
            [](const QString& file) { return ResourceManager::instance()->unregisterResource(file); }};
}

ThemeManager::ThemeManager(const QString& aThemesPath, const Registrar& aRegistrar) :
    mThemesPath(aThemesPath), mRegistrar(aRegistrar), mAvailableThemes(findThemes(aThemesPath))
{}

ThemeManager::ThemeManager(QQmlEngine*, QJSEngine*) :
    ThemeManager(HmiCoreConfigs::instance()->getThemesPath(), processRegistrar())
{}

bool ThemeManager::setCurrentTheme(const QString& aTheme)
{
    if (aTheme == mCurrentTheme)
        return true;
    if (!aTheme.isEmpty() && !registerTheme(aTheme))
        return false;
    if (!mCurrentTheme.isEmpty())
        unregisterTheme(mCurrentTheme);
    mCurrentTheme = aTheme;
    emit currentThemeChanged();
    return true;
}

bool ThemeManager::registerTheme(const QString& aTheme) const
{
    if (!aTheme.contains(QLatin1Char('/')) && mRegistrar.registerBundle(bundleName(aTheme)))
        return true;
    qWarning(
        "The theme \"%s\" cannot be shown, \"%s\" stays: its bundle \"%s\" could not be registered; check "
        "that it is in %s.",
        qPrintable(aTheme), qPrintable(mCurrentTheme), qPrintable(bundleName(aTheme)),
        qPrintable(mThemesPath));
    return false;
}

void ThemeManager::unregisterTheme(const QString& aTheme) const
{
    if (!mRegistrar.unregisterBundle(bundleName(aTheme)))
        qWarning("The bundle \"%s\" of the former theme could not be unregistered; it stays in memory.",
                 qPrintable(bundleName(aTheme)));
}

} // namespace Hmi::Core
