#include <hmi/shared/services/EulaReader.h>

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringList>

#include <hmi/core/language/LanguageManager.h>
#include <hmi/shared/application/HmiSharedConfigs.h>
#include <hmi/shared/application/LoggingCategory.h>

namespace Hmi::Shared {

static QString documentPath(const QString& aFolder, const QString& aName)
{
    return aFolder + QDir::separator() + aName + QStringLiteral(".htm");
}

/** What follows the last "-" of the file's name; empty when there is none. */
static QString languageOf(const QString& aFileName)
{
    const QString name = QFileInfo(aFileName).baseName();
    const int dash = name.lastIndexOf(QLatin1Char('-'));
    return dash < 0 ? QString() : name.mid(dash + 1);
}

EulaReader::EulaReader(QObject* aParent) : EulaReader(HmiSharedConfigs::instance()->getEulaPath(), aParent) {}

EulaReader::EulaReader(const QString& aFolder, QObject* aParent) : QObject(aParent), mFolder(aFolder) {}

void EulaReader::setFileType(FileType aFileType)
{
    if (mFileType == aFileType)
        return;
    mFileType = aFileType;
    emit fileTypeChanged();
}

QString EulaReader::getFileStem() const
{
    return mFileType == FileTypeCopyrights ? QStringLiteral("copyrights") : QStringLiteral("eula");
}

bool EulaReader::loadFile(bool aUseLanguageSuffix, bool aAllowFallback)
{
    const QString language = Core::LanguageManager::instance()->getLanguageCode();
    const QString suffix = aUseLanguageSuffix ? QLatin1Char('-') + language : QString();
    const QString path = documentPath(mFolder, getFileStem() + suffix);
    if (QFileInfo(path).isFile())
        return readFile(path);
    qCWarning(hmiShared, "%s file not found: %s", qUtf8Printable(getFileStem()), qUtf8Printable(path));
    return aAllowFallback && readFile(findFallback(language));
}

QString EulaReader::findFallback(const QString& aLanguage) const
{
    const QString stem = getFileStem();
    const QString code = aLanguage.left(2);
    const QDir folder(mFolder);
    const QStringList names = folder.entryList({QStringLiteral("*.htm")}, QDir::Files, QDir::Name);
    for (const QString& name : names) {
        const QString other = languageOf(name);
        if (!QFileInfo(name).baseName().contains(stem) || !other.startsWith(code))
            continue;
        qCInfo(hmiShared, "Failed to find %s for language \"%s\" in available files. Falling back to \"%s\"",
               qUtf8Printable(stem), qUtf8Printable(aLanguage), qUtf8Printable(other));
        return folder.filePath(name);
    }
    qCInfo(hmiShared, "Falling back to default language suffix: en_US.");
    return documentPath(mFolder, stem + QStringLiteral("-en_US"));
}

bool EulaReader::readFile(const QString& aFilePath)
{
    QFile file(aFilePath);
    // Opening a pipe would wait for its other end.
    const bool isReadable = QFileInfo(aFilePath).isFile() && file.size() <= MaximumFileSize;
    if (!isReadable || !file.open(QFile::ReadOnly | QFile::Text)) {
        qCWarning(hmiShared, "Could not open file: %s.", qUtf8Printable(aFilePath));
        return false;
    }
    const QByteArray content = file.readAll();
    mText = QString::fromUtf8(content.constData(), content.size());
    emit textChanged();
    return true;
}

} // namespace Hmi::Shared
