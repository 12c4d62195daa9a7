#include <hmi/core/input/LanguageFiles.h>

#include <QDir>
#include <QFileInfo>

namespace Hmi::Core {

LanguageFiles::LanguageFiles(const QString& aFolder, const QString& aSuffix) :
    mFolder(aFolder), mSuffix(aSuffix)
{
    const QStringList files = QDir(aFolder).entryList({QStringLiteral("*.") + aSuffix}, QDir::Files);
    for (const QString& file : files)
        mLanguages.append(QFileInfo(file).completeBaseName());
    mLanguages.sort();
}

QString LanguageFiles::closestTo(const QString& aLanguage) const
{
    const QString language = aLanguage.section(QLatin1Char('_'), 0, 0);
    for (const QString& exact : {aLanguage, language})
        if (mLanguages.contains(exact))
            return exact;
    const QString anyCountry = language + QLatin1Char('_');
    for (const QString& candidate : mLanguages)
        if (candidate.startsWith(anyCountry))
            return candidate;
    return {};
}

QString LanguageFiles::filePath(const QString& aLanguage) const
{
    return QStringLiteral("%1/%2.%3").arg(mFolder, aLanguage, mSuffix);
}

} // namespace Hmi::Core
