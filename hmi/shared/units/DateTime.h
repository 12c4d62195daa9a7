#pragma once

#include <QDateTime>
#include <QObject>

namespace Hmi::Shared {

/**
 * A date and time for QML with its offset from UTC, which JavaScript's dates do not keep. Null until native
 * code sets it. Belongs to its creator, on the main thread.
 */
class Q_DECL_EXPORT DateTime : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QDateTime dateTime READ getDateTime NOTIFY dateTimeChanged)
    /** In seconds, east positive; 0 while null. */
    Q_PROPERTY(int utcOffset READ getUtcOffset NOTIFY utcOffsetChanged)

public:
    explicit DateTime(QObject* aParent = nullptr);

    QDateTime getDateTime() const { return mDateTime; }
    int getUtcOffset() const { return mDateTime.offsetFromUtc(); }

    void setDateTime(const QDateTime& aDateTime);

signals:
    /** The instant became another; the same instant at another offset is stored without this signal. */
    void dateTimeChanged();
    void utcOffsetChanged();

private:
    QDateTime mDateTime;
};

} // namespace Hmi::Shared
