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
    {{}, QString()},
    {{{0, 5}}, QStringLiteral("5f 5f ")},
    {{{1, 5}}, QStringLiteral("5c 5f ")},
    {{{0, 5}, {0, 9}}, QStringLiteral("5c 9f 9f ")},
    {{{2, 9}, {0, 3}, {1, 0}}, QStringLiteral("9c 9c 9c 3c 0c 0f ")},
    {{{0, 5}, {-1, 9}}, QStringLiteral("5r 9r 9r 9r ")},
    {{{-1, 5}, {0, 9}}, QStringLiteral("5c 5c 5c 5c ")},
};

TEST(RetryTimer, TicksStageByStageAndBeginsAgainAfterStopUntilItsTimerIsLost)
{
    for (const auto& [schedule, expected] : sTicks) {
        SCOPED_TRACE(qPrintable(expected));
        auto parent = std::make_unique<QObject>();
        RetryTimer retryTimer(schedule, parent.get());
        const QTimer& timer = *parent->findChild<QTimer*>();
        Hmi::Shared::EventLoop loop;
        QString ticks;
        const auto record = [&](char signal) {
            EXPECT_FALSE(timer.isActive());
            ticks += QStringLiteral("%1%2 ").arg(timer.interval()).arg(QLatin1Char(signal));
            loop.quit();
        };
        QObject::connect(&retryTimer, &RetryTimer::retry, [&] { record('r'); });
        QObject::connect(&retryTimer, &RetryTimer::retryConditional,
                         [&](bool last) { record(last ? 'f' : 'c'); });
        for (int round = 0; round < 2; ++round) {
            for (int tick = 0; tick < expected.count(QLatin1Char(' ')); ++tick) {
                retryTimer.start();
                loop.exec(20000);
            }
            retryTimer.start();
            EXPECT_EQ(timer.isActive(), !schedule.isEmpty());
            retryTimer.stop();
            EXPECT_FALSE(timer.isActive());
        }
        EXPECT_EQ(ticks, expected + expected);
        parent.reset();
        retryTimer.start();
        retryTimer.stop();
    }
}
