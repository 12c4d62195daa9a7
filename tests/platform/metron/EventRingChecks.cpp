#include <QString>
#include <gtest/gtest.h>
#include <memory>
#include <thread>
#include <vector>

#include <platform/metron/EventRing.h>

using Metron::EventRing;

TEST(EventRing, KeepsTheLatestEventsInOrderWithGrowingTimes)
{
    const auto ring = std::make_unique<EventRing>();
    EXPECT_TRUE(ring->events().isEmpty());
    constexpr int raised = EventRing::Capacity + 10;
    for (int index = 0; index < raised; ++index)
        ring->raise(QString::number(index));
    const QVector<Metron::Event> events = ring->events();
    ASSERT_EQ(events.size(), EventRing::Capacity);
    for (int index = 0; index < events.size(); ++index) {
        EXPECT_EQ(events.at(index).name, QString::number(raised - EventRing::Capacity + index));
        EXPECT_GE(events.at(index).nanoseconds, events.at(qMax(0, index - 1)).nanoseconds);
    }
    const QString name(EventRing::MaximumNameLength + 5, QLatin1Char('n'));
    ring->raise(name);
    EXPECT_EQ(ring->events().constLast().name, name.left(EventRing::MaximumNameLength)) << "cut";
}

TEST(EventRingThreads, LosesNothingOfSeveralRaisers)
{
    const auto ring = std::make_unique<EventRing>();
    std::vector<std::thread> raisers;
    for (int raiser = 0; raiser < 4; ++raiser)
        raisers.emplace_back([&ring] {
            for (int index = 0; index < EventRing::Capacity / 4; ++index)
                ring->raise(QStringLiteral("event"));
        });
    for (std::thread& raiser : raisers)
        raiser.join();
    EXPECT_EQ(ring->events().size(), EventRing::Capacity);
}
