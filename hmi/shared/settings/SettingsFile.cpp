#include <hmi/shared/settings/SettingsFile.h>

#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>

#include <hmi/shared/application/LoggingCategory.h>
#include <hmi/shared/settings/SettingsManager.h>

namespace Hmi::Shared::SettingsFile {

static bool refuse(const QString& aFilePath, const QString& aFault)
{
    qCWarning(hmiShared, "The settings file '%s' was not imported, nothing changed: %s",
              qUtf8Printable(aFilePath), qUtf8Printable(aFault));
    return false;
}

bool save(const QString& aFilePath)
{
    QJsonObject settings;
    SettingsManager::instance()->toJson(settings);
    // Reading it, QJsonDocument would drop a byte-order mark at the beginning of a text.
    const QByteArray content = QJsonDocument(settings).toJson().replace("\xEF\xBB\xBF", "\\ufeff");
    QSaveFile file(aFilePath);
    // Without flush() commit() would not see that the rest of a short file found no room.
    if (file.open(QIODevice::WriteOnly) && file.write(content) == content.size() && file.flush() &&
        file.commit())
        return true;
    qCWarning(
        hmiShared,
        "The settings file '%s' was not written: %s. Check the folder, its access rights and free space.",
        qUtf8Printable(aFilePath), qUtf8Printable(file.errorString()));
    return false;
}

bool load(const QString& aFilePath)
{
    // A pipe or a device would be waited for.
    if (!QFileInfo(aFilePath).isFile())
        return refuse(aFilePath,
                      QStringLiteral("there is no such file. Export the settings to this folder first."));
    QFile file(aFilePath);
    if (!file.open(QIODevice::ReadOnly))
        return refuse(aFilePath, file.errorString() + QStringLiteral(". Check its access rights."));
    const QByteArray content = file.read(qMin(file.size(), MaximumSize) + 1);
    if (content.size() > MaximumSize)
        return refuse(aFilePath, QStringLiteral("it is larger than 4 MiB. Export the settings anew."));
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(content, &error);
    if (!document.isObject())
        return refuse(aFilePath,
                      QStringLiteral("it is no JSON object, at offset %1: %2. Export the settings anew.")
                          .arg(error.offset)
                          .arg(error.errorString()));
    return SettingsManager::instance()->setValuesFromJson(document.object());
}

} // namespace Hmi::Shared::SettingsFile
