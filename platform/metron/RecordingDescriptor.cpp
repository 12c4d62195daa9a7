#include <platform/metron/RecordingDescriptor.h>

#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <algorithm>

namespace Metron {

static const QString sNameKey = QStringLiteral("name");
static const QString sFilterKey = QStringLiteral("filter");
static const QString sLimitKey = QStringLiteral("limit");

/** Wildcard match in linear space without recursion; goes back to the latest asterisk only. */
static bool matches(const QString& aName, const QString& aPattern)
{
    int name = 0;
    int pattern = 0;
    int afterAsterisk = -1;
    int retryFrom = 0;
    while (name < aName.size()) {
        const QChar wanted = pattern < aPattern.size() ? aPattern.at(pattern) : QChar();
        if (wanted == QLatin1Char('*')) {
            afterAsterisk = ++pattern;
            retryFrom = name;
        } else if (!wanted.isNull() && (wanted == QLatin1Char('?') || wanted == aName.at(name))) {
            ++pattern;
            ++name;
        } else if (afterAsterisk >= 0) {
            pattern = afterAsterisk;
            name = ++retryFrom;
        } else {
            return false;
        }
    }
    return std::all_of(aPattern.begin() + pattern, aPattern.end(),
                       [](QChar rest) { return rest == QLatin1Char('*'); });
}

static CaptureFault readObject(const QString& aPath, QJsonObject& aObject)
{
    // A pipe or a device would be waited for.
    if (!QFileInfo(aPath).isFile())
        return {NoSuchFile, QStringLiteral("there is no such file")};
    QFile file(aPath);
    if (!file.open(QIODevice::ReadOnly))
        return {CannotRead, file.errorString() + QStringLiteral("; check its access rights")};
    const QByteArray content = file.read(RecordingDescriptor::MaximumFileSize + 1);
    if (content.size() > RecordingDescriptor::MaximumFileSize)
        return {TooLarge, QStringLiteral("it is larger than 64 KiB; shorten the filter")};
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(content, &error);
    if (!document.isObject())
        return {NotJson, QStringLiteral("it is no JSON object, at offset %1: %2")
                             .arg(error.offset)
                             .arg(error.errorString())};
    aObject = document.object();
    return {};
}

CaptureFault RecordingDescriptor::load(const QString& aPath)
{
    QJsonObject object;
    RecordingDescriptor descriptor;
    CaptureFault fault = readObject(aPath, object);
    if (fault.code == Success)
        fault = descriptor.parse(object);
    if (fault.code == Success)
        *this = descriptor;
    else
        fault.reason =
            QStringLiteral("The recording's descriptor '%1' is not used: %2.").arg(aPath, fault.reason);
    return fault;
}

CaptureFault RecordingDescriptor::parse(const QJsonObject& aObject)
{
    const QStringList keys = aObject.keys();
    for (const QString& key : keys) {
        if (key != sNameKey && key != sFilterKey && key != sLimitKey)
            return {UnknownKey,
                    QStringLiteral("'%1' is no key of it, those are name, filter and limit").arg(key)};
    }
    mName = aObject.value(sNameKey).toString();
    if (mName.isEmpty())
        return {WrongType, QStringLiteral("name has to be the recording's name")};
    const CaptureFault fault = parseFilter(aObject.value(sFilterKey));
    return fault.code != Success ? fault : parseLimit(aObject.value(sLimitKey));
}

CaptureFault RecordingDescriptor::parseFilter(const QJsonValue& aFilter)
{
    if (aFilter.isUndefined())
        return {};
    mFilter.clear();
    const QJsonArray patterns = aFilter.toArray();
    for (const auto& pattern : patterns)
        mFilter.append(pattern.toString());
    if (mFilter.isEmpty() || mFilter.contains(QString()))
        return {WrongType,
                QStringLiteral("filter has to be a list of event names such as [\"hmi/*\"]; without it all "
                               "events are taken")};
    return {};
}

CaptureFault RecordingDescriptor::parseLimit(const QJsonValue& aLimit)
{
    if (aLimit.isUndefined())
        return {};
    const double limit = aLimit.toDouble();
    if (!aLimit.isDouble())
        return {WrongType, QStringLiteral("limit has to be a number")};
    if (!(limit >= 1 && limit <= EventRing::Capacity) || limit != static_cast<int>(limit))
        return {LimitOutOfRange,
                QStringLiteral("limit has to be a whole number from 1 to %1").arg(EventRing::Capacity)};
    mLimit = static_cast<int>(limit);
    return {};
}

bool RecordingDescriptor::takes(const QString& aEventName) const
{
    return std::any_of(mFilter.begin(), mFilter.end(),
                       [&aEventName](const QString& pattern) { return matches(aEventName, pattern); });
}

} // namespace Metron
