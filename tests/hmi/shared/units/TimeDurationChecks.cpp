#include <hmi/shared/units/TimeDuration.h>

#include <QVariant>
#include <gtest/gtest.h>
#include <random>

TEST(TimeDuration, KeepsTheTotalOfAnyPortionsAndWrapsBeyond32Bits)
{
    const qint64 units[] = {86400000, 3600000, 60000, 1000, 1};
    const QByteArray names[] = {"Days", "Hours", "Minutes", "Seconds", "Milliseconds"};
    std::mt19937 random(20261121);
    Hmi::Shared::TimeDuration duration;
    for (int round = 0; round < 20000; ++round) {
        // From a few units to all that an int holds, and often the ends of the range.
        const qint64 range = std::numeric_limits<int>::max() >> (round % 31);
        int given[5];
        for (int& portion : given)
            portion = int(qBound(
                -range - 1, std::uniform_int_distribution<qint64>(-2 * range, 2 * range)(random), range));
        SCOPED_TRACE(testing::PrintToString(given));
        duration.setDuration(given[0], given[1], given[2], given[3], given[4]);
        qint64 total = 0;
        for (int i = 0; i < 5; ++i) {
            const int portion = duration.property(names[i].toLower() + "Portion").toInt();
            ASSERT_TRUE(i == 0 || std::abs(portion) < units[i - 1] / units[i]) << portion;
            total += given[i] * units[i];
        }
        ASSERT_EQ(duration.getDurationInMilliseconds(), static_cast<qint32>(total));
        for (int i = 0; i < 4 && range < 20000; ++i)
            ASSERT_NEAR(duration.property("durationIn" + names[i]).toDouble() * double(units[i]),
                        double(total), 0.01);
    }
}
