#include <hmi/shared/units/DateTime.h>

namespace Hmi::Shared {

DateTime::DateTime(QObject* aParent) : QObject(aParent) {}

void DateTime::setDateTime(const QDateTime& aDateTime)
{
    const bool hasOtherTime = aDateTime != mDateTime;
    const bool hasOtherOffset = aDateTime.offsetFromUtc() != getUtcOffset();
    mDateTime = aDateTime;
    if (hasOtherTime)
        emit dateTimeChanged();
    if (hasOtherOffset)
        emit utcOffsetChanged();
}

} // namespace Hmi::Shared
