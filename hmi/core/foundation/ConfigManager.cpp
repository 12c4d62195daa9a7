#include <hmi/core/foundation/ConfigManager.h>

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSettings>
#include <algorithm>
#include <utility>

namespace Hmi::Core {

static QString textOf(const QVariant& aValue)
{
    return aValue.type() == QVariant::StringList ? aValue.toStringList().join(QLatin1Char(','))
                                                 : aValue.toString();
}

static bool readsAs(QVariant::Type aType, const QString& aText)
{
    bool readable = true;
    if (aType == QVariant::Int)
        aText.toInt(&readable);
    else if (aType == QVariant::Bool)
        readable = QStringList{QStringLiteral("true"), QStringLiteral("false"), QStringLiteral("1"),
                               QStringLiteral("0")}
                       .contains(aText, Qt::CaseInsensitive);
    return readable;
}

static const char* expectedForm(QVariant::Type aType)
{
    return aType == QVariant::Int ? "a whole number" : "true or false";
}

void ConfigManager::setPlaceholders(const QHash<QString, QString>& aPlaceholders)
{
    mPlaceholders = aPlaceholders;
}

/** QSettings searches the rest of the file for the end of each group's name: minutes, where there is none. */
static bool hasManyOpenBrackets(const QString& aFilePath)
{
    QFile file(aFilePath);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    int brackets = 0;
    bool isOpen = false;
    for (const char character : file.readAll()) {
        if (character == '[')
            isOpen = true;
        else if (character == ']')
            isOpen = false;
        else if (character == '\n' || character == '\r')
            brackets += std::exchange(isOpen, false) ? 1 : 0;
    }
    return brackets > ConfigManager::MostOpenBrackets;
}

/** Why the file is not to be read; empty when it is. */
static QString refusal(const QFileInfo& aInfo)
{
    if (!aInfo.exists())
        return QStringLiteral("it does not exist");
    if (!aInfo.isFile())
        return QStringLiteral("it is not a regular file");
    if (aInfo.size() > ConfigManager::MaximumFileSize)
        return QStringLiteral("its %1 bytes exceed the limit of %2; check that it is the right file")
            .arg(aInfo.size())
            .arg(ConfigManager::MaximumFileSize);
    if (aInfo.size() > ConfigManager::LargeFileSize && hasManyOpenBrackets(aInfo.filePath()))
        return QStringLiteral("it has more than %1 lines with a \"[\" that no \"]\" closes; check that it is "
                              "the right file")
            .arg(ConfigManager::MostOpenBrackets);
    return QString();
}

static bool warnNotLoaded(const QString& aFilePath, const QString& aReason)
{
    qWarning("WARNING: The config file, %s, could not be loaded because %s.",
             aFilePath.toLocal8Bit().constData(), qPrintable(aReason));
    return false;
}

bool ConfigManager::load(const QString& aFilePath)
{
    const QFileInfo info(aFilePath);
    const QString reason = refusal(info);
    if (!reason.isEmpty())
        return warnNotLoaded(aFilePath, reason);
    QSettings settings(aFilePath, QSettings::IniFormat);
    if (settings.status() == QSettings::AccessError)
        return warnNotLoaded(aFilePath, QStringLiteral("reading it is not permitted"));
    settings.setIniCodec("UTF-8");
    const bool isComplete = takeValues(settings, info.path() + QLatin1Char('/'));
    if (!isComplete || settings.status() != QSettings::NoError)
        qWarning("WARNING: The config file, %s, has lines that are not \"key=value\"; they are ignored.",
                 qPrintable(aFilePath));
    mFilePath = aFilePath;
    return true;
}

/**
 * QSettings lists the key of "=value" and of "a//b=value", but takes them for others when asked for them:
 * each slash stands between other characters.
 */
static bool isKey(const QString& aKey)
{
    const QLatin1Char slash('/');
    int before = -1;
    for (int at = aKey.indexOf(slash); at >= 0; at = aKey.indexOf(slash, at + 1)) {
        if (at == before + 1)
            return false;
        before = at;
    }
    return before + 1 < aKey.size();
}

bool ConfigManager::takeValues(const QSettings& aSettings, const QString& aBaseDirectory)
{
    bool isComplete = true;
    const QStringList keys = aSettings.allKeys();
    mEntries.reserve(mEntries.size() + keys.size());
    for (const QString& key : keys) {
        if (!isKey(key)) {
            isComplete = false;
            continue;
        }
        Entry& entry = mEntries[key];
        entry.baseDirectory = aBaseDirectory;
        entry.fileValue = aSettings.value(key);
        if (mPlaceholders.isEmpty())
            continue;
        QString expanded = textOf(entry.fileValue);
        if (expandPlaceholders(expanded))
            entry.fileValue = expanded;
    }
    return isComplete;
}

bool ConfigManager::expandPlaceholders(QString& aText) const
{
    static const QRegularExpression pattern(QStringLiteral("%%([0-9a-zA-Z]{1,100})%%"));
    QString expanded;
    int taken = 0; // of the text
    auto matches = pattern.globalMatch(aText);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        const auto replacement = mPlaceholders.constFind(match.captured(1));
        if (replacement == mPlaceholders.constEnd()) {
            qWarning("WARNING: Found placeholder, %s, but no corresponding value to replace it.",
                     qPrintable(match.captured(1)));
            continue;
        }
        expanded += aText.midRef(taken, match.capturedStart() - taken) + *replacement;
        taken = match.capturedEnd();
    }
    if (taken == 0)
        return false;
    aText = expanded + aText.midRef(taken);
    return true;
}

void ConfigManager::registerDefault(const QString& aKey, const QVariant& aDefault, bool aIsPath)
{
    Entry& entry = mEntries[aKey];
    entry.defaultValue = aDefault;
    entry.isPath = aIsPath;
    if (entry.fileValue.isValid() && !readsAs(aDefault.type(), textOf(entry.fileValue)))
        qWarning("WARNING: The value \"%s\" of %s in %s is not %s; write it as for example %s.",
                 qPrintable(textOf(entry.fileValue)), qPrintable(aKey), qPrintable(mFilePath),
                 expectedForm(aDefault.type()), qPrintable(aDefault.toString()));
}

QVariant ConfigManager::value(const QString& aKey, bool aResolvePaths) const
{
    const auto entry = mEntries.constFind(aKey);
    if (entry == mEntries.constEnd())
        return QVariant();
    if (!entry->fileValue.isValid())
        return entry->defaultValue;
    if (aResolvePaths && entry->isPath) {
        const QString path = textOf(entry->fileValue);
        if (QFileInfo(path).isRelative())
            return QVariant(entry->baseDirectory + path);
    }
    return entry->fileValue;
}

QString ConfigManager::text(const QString& aKey, bool aResolvePaths) const
{
    return textOf(value(aKey, aResolvePaths));
}

QStringList ConfigManager::getKeys() const
{
    QStringList keys = mEntries.keys();
    std::sort(keys.begin(), keys.end());
    return keys;
}

bool ConfigManager::isFromFile(const QString& aKey) const { return mEntries.value(aKey).fileValue.isValid(); }

} // namespace Hmi::Core
