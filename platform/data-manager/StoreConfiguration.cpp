#include <platform/data-manager/StoreConfiguration.h>

#include <QDir>
#include <QFileInfo>
#include <QSettings>
#include <QStringList>

namespace DataManager {

static QString whyUnreadable(const QString& aIniPath)
{
    const QFileInfo info(aIniPath);
    if (!info.exists())
        return QStringLiteral("it does not exist");
    if (!info.isFile())
        return QStringLiteral("it is not a regular file");
    return info.isReadable() ? QString() : QStringLiteral("its rights do not allow it");
}

static void reportUnreadable(const QString& aIniPath, const QString& aReason)
{
    qCritical(
        "The data manager is not started: its configuration '%s' cannot be read: %s. Create it; the empty "
        "file stands for the defaults.",
        qUtf8Printable(aIniPath), qUtf8Printable(aReason));
}

static Durability readDurability(const QString& aText, const QString& aIniPath)
{
    if (aText == QLatin1String("full"))
        return Durability::Full;
    if (aText != QLatin1String("normal"))
        qWarning("Storage/Durability is \"%s\" in '%s'; it has to be normal or full. It is taken for normal.",
                 qUtf8Printable(aText), qUtf8Printable(aIniPath));
    return Durability::Normal;
}

std::optional<StoreConfiguration> readConfiguration(const QString& aIniPath,
                                                    const QHash<QString, QString>& aParameters)
{
    const QString unreadable = whyUnreadable(aIniPath);
    if (!unreadable.isEmpty()) {
        reportUnreadable(aIniPath, unreadable);
        return std::nullopt;
    }
    QSettings ini(aIniPath, QSettings::IniFormat);
    ini.setIniCodec("UTF-8");
    if (ini.status() != QSettings::NoError) {
        reportUnreadable(aIniPath, QStringLiteral("it has lines that are not INI"));
        return std::nullopt;
    }
    const auto read = [&](const QString& aName, const QString& aFallback) {
        // A value with a comma reads as a list.
        const QString text =
            ini.value(QStringLiteral("Storage/") + aName).toStringList().join(QLatin1Char(','));
        const QString value = aParameters.value(aName, text);
        return value.isEmpty() ? aFallback : value;
    };
    const QDir folder = QFileInfo(aIniPath).absoluteDir();
    StoreConfiguration configuration;
    configuration.storePath = QDir::cleanPath(
        folder.absoluteFilePath(read(QStringLiteral("Path"), QStringLiteral("hmi_settings.db"))));
    const QString defaults = read(QStringLiteral("Defaults"), QString());
    if (!defaults.isEmpty())
        configuration.defaultsPath = QDir::cleanPath(folder.absoluteFilePath(defaults));
    configuration.durability =
        readDurability(read(QStringLiteral("Durability"), QStringLiteral("normal")), aIniPath);
    return configuration;
}

} // namespace DataManager
