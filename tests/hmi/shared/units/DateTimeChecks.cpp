#include <hmi/shared/units/DateTime.h>

#include <QTimeZone>
#include <gtest/gtest.h>
#include <string>
#include <utility>

using Hmi::Shared::DateTime;

TEST(DateTime, AnnouncesTheInstantAndTheOffsetEachForItself)
{
    const QDateTime epoch = QDateTime::fromSecsSinceEpoch(0, Qt::UTC);
    DateTime dateTime;
    std::string seen;
    QObject::connect(&dateTime, &DateTime::dateTimeChanged, [&] { seen += " time"; });
    QObject::connect(&dateTime, &DateTime::utcOffsetChanged, [&] { seen += " offset"; });
    const auto set = [&](const QDateTime& aValue) {
        dateTime.setDateTime(aValue);
        return std::to_string(dateTime.getUtcOffset()) + std::exchange(seen, {});
    };
    EXPECT_EQ(set(QDateTime()), "0");
    EXPECT_EQ(set(epoch), "0 time");
    EXPECT_EQ(set(epoch.toOffsetFromUtc(7200)), "7200 offset");
    EXPECT_EQ(set(epoch.toOffsetFromUtc(7200)), "7200");
    EXPECT_EQ(set(QDateTime(QDate(2050, 7, 1), QTime(12, 0), QTimeZone("America/New_York"))),
              "-14400 time offset");
}
