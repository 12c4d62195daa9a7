#include <hmi/shared/events/RetryTimer.h>

#include <QString>
#include <QTimer>
#include <gtest/gtest.h>
#include <memory>
#include <utility>

#include <hmi/shared/events/EventLoop.h>

using Hmi::Shared::RetryTimer;

// The interval of each tick and its signal: "r" retry(), "c" retryConditional(false), "f"
// retryConditional(true).
static const std::pair<RetryTimer::Schedule, QString> sTicks[] = {
    {{{0, 5}}, QStringLiteral("5f 5f ")},
    {{{1, 5}}, QStringLiteral("5c 5f ")},
    {{{0, 5}, {0, 9}}, QStringLiteral("5c 9f 9f ")},
    {{{1, 5}, {1, 9}}, QStringLiteral("5c 5c 9c 9f ")},
    {{{2, 9}, {0, 3}, {1, 0}}, QStringLiteral("9c 9c 9c 3c 0c 0f ")},
    {{{0, 5}, {-1, 9}}, QStringLiteral("5r 9r 9r 9r ")},
    {{{-1, 5}, {0, 9}}, QStringLiteral("5c 5c 5c 5c ")},
};

TEST(RetryTimer, TicksStageByStageAndBeginsAgainAfterStop)
{
    for (const auto& [schedule, expected] : sTicks) {
        QObject parent;
        RetryTimer retryTimer(schedule, &parent);
        const QTimer& timer = *parent.findChild<QTimer*>();
        QString ticks;
        const auto record = [&](char signal) {
            EXPECT_FALSE(timer.isActive());
            ticks += QStringLiteral("%1%2 ").arg(timer.interval()).arg(QLatin1Char(signal));
        };
        QObject::connect(&retryTimer, &RetryTimer::retry, [&] { record('r'); });
        QObject::connect(&retryTimer, &RetryTimer::retryConditional,
                         [&](bool last) { record(last ? 'f' : 'c'); });
        Hmi::Shared::EventLoop loop;
        for (int round = 0; round < 2; ++round) {
            for (int tick = 0; tick < expected.count(QLatin1Char(' ')); ++tick) {
                retryTimer.start();
                loop.addQuitable(&retryTimer, SIGNAL(retry()));
                loop.exec(20000, &retryTimer, SIGNAL(retryConditional(bool)));
            }
            retryTimer.start();
            retryTimer.stop();
            EXPECT_FALSE(timer.isActive());
        }
        EXPECT_EQ(ticks, expected + expected);
    }
}

TEST(RetryTimer, IgnoresAnEmptyScheduleAndALostTimer)
{
    auto parent = std::make_unique<QObject>();
    RetryTimer empty({}, parent.get());
    empty.start();
    EXPECT_FALSE(parent->findChild<QTimer*>()->isActive());
    empty.onTimeout();

    RetryTimer orphan({{0, 0}}, parent.get());
    parent.reset();
    orphan.start();
    orphan.stop();
}
