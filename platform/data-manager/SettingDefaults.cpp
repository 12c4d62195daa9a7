#include <platform/data-manager/SettingDefaults.h>

#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonParseError>
#include <limits>
#include <optional>

namespace DataManager {

/** A table of defaults is a few kilobytes. */
static constexpr qint64 MaximumFileSize = 4LL * 1024 * 1024;

static QJsonObject readFile(const QString& aPath)
{
    // A pipe or a device would be waited for.
    if (QFileInfo::exists(aPath) && !QFileInfo(aPath).isFile()) {
        qWarning("The default settings '%s' are no regular file.", qUtf8Printable(aPath));
        return QJsonObject();
    }
    QFile file(aPath);
    if (!file.open(QFile::ReadOnly)) {
        qWarning("The default settings '%s' cannot be opened: %s.", qUtf8Printable(aPath),
                 qUtf8Printable(file.errorString()));
        return QJsonObject();
    }
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(file.read(MaximumFileSize), &error);
    if (!document.isObject())
        qWarning("The default settings '%s' are not a JSON object (offset %d: %s).", qUtf8Printable(aPath),
                 error.offset, qUtf8Printable(error.errorString()));
    return document.object();
}

SettingDefaults::SettingDefaults(const QString& aPath) :
    mDefaults(aPath.isEmpty() ? QJsonObject() : readFile(aPath))
{}

static bool isInt(double aNumber)
{
    return aNumber >= std::numeric_limits<int>::min() && aNumber <= std::numeric_limits<int>::max() &&
           aNumber == static_cast<int>(aNumber);
}

static std::optional<Value> convert(const QJsonValue& aJson, const Value& aPrototype)
{
    if (std::holds_alternative<bool>(aPrototype) && aJson.isBool())
        return aJson.toBool();
    if (std::holds_alternative<int>(aPrototype) && aJson.isDouble() && isInt(aJson.toDouble()))
        return aJson.toInt();
    if (std::holds_alternative<double>(aPrototype) && aJson.isDouble())
        return aJson.toDouble();
    if (std::holds_alternative<QString>(aPrototype) && aJson.isString())
        return aJson.toString();
    return std::nullopt;
}

ReadResult SettingDefaults::read(const QString& aId, const Value& aPrototype)
{
    const auto json = mDefaults.constFind(aId);
    if (json == mDefaults.constEnd())
        return {NoDefault, nullptr};
    const std::optional<Value> value = convert(*json, aPrototype);
    if (!value)
        return {WrongType, nullptr};
    mLatest = *value;
    return {Ok, &mLatest};
}

} // namespace DataManager
