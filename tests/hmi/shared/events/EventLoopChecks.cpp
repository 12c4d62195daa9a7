#include <hmi/shared/events/EventLoop.h>

#include <QTimer>
#include <gtest/gtest.h>
#include <map>
#include <string>
#include <thread>

#include <tests/support/ExpectedMessages.h>

using Hmi::Shared::EventLoop;

namespace {

constexpr int Success = EventLoop::s_exitCodeSuccess;
constexpr int Timeout = EventLoop::s_exitCodeTimeout;
constexpr int Bound = 10000; // milliseconds; only a failing check waits that long
constexpr int Short = 20;

class Sender : public QObject
{
    Q_OBJECT
signals:
    void fired();
};

// Each letter is a sender; in the scripts before and during the run it fires, and "-" destroys all senders.
struct Wait
{
    std::string waitables, quitables, before, during;
    int expected;
};

const Wait sWaits[] = {
    {"", "", "", "", Timeout},     {"", "QR", "", "R", Success},  {"ABC", "", "", "CAB", Success},
    {"AB", "", "", "AA", Timeout}, {"AB", "Q", "", "Q", Success}, {"AB", "Q", "", "BA", Success},
    {"A", "Q", "Q", "", Success},  {"AB", "", "AB", "", Success}, {"AB", "", "B", "A", Success},
    {"AB", "", "A", "", Timeout},  {"AB", "", "", "A-", Timeout}, {"A", "Q", "-", "AQ", Timeout},
};

} // namespace

TEST(EventLoop, EndsAsExpectedAndLeavesNothingConnected)
{
    for (const Qt::ConnectionType type : {Qt::AutoConnection, Qt::QueuedConnection}) {
        for (const Wait& wait : sWaits) {
            SCOPED_TRACE(wait.waitables + ' ' + wait.quitables + ' ' + wait.before + ' ' + wait.during);
            EventLoop loop;
            QTimer::singleShot(Bound, &loop, [&loop] { loop.exit(-2); });
            std::map<char, Sender> senders;
            for (const char letter : wait.waitables)
                loop.addWaitable(&senders[letter], SIGNAL(fired()), type);
            for (const char letter : wait.quitables)
                loop.addQuitable(&senders[letter], SIGNAL(fired()), type);
            const auto play = [&senders](const std::string& script) {
                for (const char letter : script)
                    letter == '-' ? senders.clear() : senders[letter].fired();
            };
            play(wait.before);
            QTimer::singleShot(0, &loop, [&] { play(wait.during); });
            EXPECT_EQ(loop.exec(wait.expected == Timeout ? Short : 0), wait.expected);
            play(wait.waitables + wait.quitables);
            EXPECT_EQ(loop.exec(Short), Timeout);
        }
    }
}

TEST(EventLoop, SatisfiedWaitProcessesNoEventAndDropsQueuedSignals)
{
    EventLoop loop;
    Sender sender;
    loop.addQuitable(&sender, SIGNAL(fired()), Qt::QueuedConnection);
    loop.addQuitable(&sender, SIGNAL(fired()));
    emit sender.fired();
    bool eventProcessed = false;
    QTimer::singleShot(0, &sender, [&] { eventProcessed = true; });
    EXPECT_EQ(loop.exec(Bound), Success);
    EXPECT_FALSE(eventProcessed);
    EXPECT_EQ(loop.exec(Short), Timeout);
}

TEST(EventLoop, FirstEndOfARunDecides)
{
    EventLoop loop;
    QTimer::singleShot(0, &loop, [&] { loop.handleEventQuitable(), loop.timeout(); });
    EXPECT_EQ(loop.exec(Bound), Success);
    QTimer::singleShot(0, &loop, [&] { loop.timeout(), loop.handleEventQuitable(); });
    EXPECT_EQ(loop.exec(Bound), Timeout);
}

TEST(EventLoop, NestedRunIsRefusedAndLeavesTheOuterOne)
{
    EventLoop loop;
    Sender outer, inner;
    HmiTest::expectMessageMatching(QtWarningMsg, QStringLiteral("QEventLoop::exec: .*already called exec.*"));
    QTimer::singleShot(0, &loop, [&] {
        EXPECT_EQ(loop.exec(Bound, &inner, SIGNAL(fired())), -1);
        emit inner.fired();
        EXPECT_TRUE(loop.isRunning());
        emit outer.fired();
    });
    EXPECT_EQ(loop.exec(Bound, &outer, SIGNAL(fired())), Success);
}

TEST(EventLoopThreads, SignalArrivesFromAnotherThread)
{
    EventLoop loop;
    Sender sender;
    loop.addWaitable(&sender, SIGNAL(fired()));
    std::thread thread([&sender] { emit sender.fired(); });
    EXPECT_EQ(loop.exec(Bound), Success);
    thread.join();
}

#include "EventLoopChecks.moc"
