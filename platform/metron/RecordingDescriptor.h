#pragma once

#include <QJsonObject>
#include <QString>
#include <QStringList>

#include <platform/metron/CaptureFault.h>
#include <platform/metron/EventRing.h>

namespace Metron {

/**
 * What a recording keeps, read from a JSON file:
 *
 *     {"name": "ApplicationStartup", "filter": ["hmi*", "Hmi/Core/load*"], "limit": 256}
 *
 * "name" is the recording's. "filter" holds patterns of event names in which an asterisk stands for any text,
 * also across "/", and "?" for one character; without it every event is taken. "limit" is the number of
 * events kept, 1 to EventRing::Capacity; without it as many as the ring holds.
 */
class Q_DECL_EXPORT RecordingDescriptor
{
public:
    /** In bytes, 64 KiB. */
    static constexpr qint64 MaximumFileSize = 1 << 16;

    /** Takes over what the file says; on any fault this stays as it was. */
    CaptureFault load(const QString& aPath);

    QString getName() const { return mName; }
    int getLimit() const { return mLimit; }

    /** Whether an event of this name is kept. */
    bool takes(const QString& aEventName) const;

private:
    CaptureFault parse(const QJsonObject& aObject);
    CaptureFault parseFilter(const QJsonValue& aFilter);
    CaptureFault parseLimit(const QJsonValue& aLimit);

    QString mName;
    QStringList mFilter{QStringLiteral("*")};
    int mLimit = EventRing::Capacity;
};

} // namespace Metron
