#include <hmi/core/language/Translations.h>

#include <QDir>
#include <QLocale>
#include <QRegularExpression>
#include <algorithm>
#include <utility>

namespace Hmi::Core {

Translations::Translations(const QString& aFolder)
{
    static const QRegularExpression pattern(QStringLiteral("^(?:.*_)?([a-z]{2,3}_[A-Z]{2})\\.qm$"));
    const QDir folder(aFolder);
    const QStringList names = folder.entryList({QStringLiteral("*.qm")}, QDir::Files, QDir::Name);
    for (const QString& name : names) {
        const QString code = pattern.match(name).captured(1);
        if (isCode(code))
            mFiles[code].append(folder.absoluteFilePath(name));
    }
}

bool Translations::isCode(const QString& aText)
{
    static const QRegularExpression pattern(QStringLiteral("\\A[a-z]{2,3}_[A-Z]{2}\\z"));
    return pattern.match(aText).hasMatch() && QLocale(aText).language() != QLocale::C;
}

bool Translations::install(const QString& aCode)
{
    std::vector<std::unique_ptr<TranslationFile>> loaded;
    const QStringList paths = findFiles(aCode);
    for (const QString& path : paths) {
        loaded.push_back(TranslationFile::load(path));
        if (!loaded.back())
            return false;
    }
    mInstalled = std::move(loaded);
    for (const auto& file : mInstalled)
        file->install();
    return true;
}

QStringList Translations::findFiles(const QString& aCode) const
{
    const auto exact = mFiles.constFind(aCode);
    if (exact != mFiles.constEnd())
        return *exact;
    const QString language = aCode.section(QLatin1Char('_'), 0, 0);
    const auto usual = mFiles.constFind(QLocale(language).name());
    if (usual != mFiles.constEnd())
        return *usual;
    const auto any = mFiles.lowerBound(language + QLatin1Char('_'));
    return any != mFiles.constEnd() && any.key().section(QLatin1Char('_'), 0, 0) == language ? *any
                                                                                             : QStringList();
}

} // namespace Hmi::Core
