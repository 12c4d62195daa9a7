#include <QEventLoop>
#include <atomic>
#include <benchmark/benchmark.h>
#include <chrono>
#include <semaphore.h>
#include <thread>

#include <hmi/shared/events/EventLoop.h>

using Hmi::Shared::EventLoop;

namespace {

/** Another thread that fires the sender's signal each time it is asked to, and notes when. */
class Firing
{
public:
    Firing() : mThread([this] { run(); }) { sem_init(&mWanted, 0, 0); }

    ~Firing()
    {
        mStop = true;
        sem_post(&mWanted);
        mThread.join();
    }

    void request() { sem_post(&mWanted); }

    double secondsSinceFired() const
    {
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - mFired.load()).count();
    }

    QObject sender;

private:
    void run()
    {
        for (;;) {
            sem_wait(&mWanted);
            if (mStop)
                return;
            // Long enough for the waiting thread to fall asleep.
            std::this_thread::sleep_for(std::chrono::microseconds(100));
            mFired = std::chrono::steady_clock::now();
            emit sender.destroyed();
        }
    }

    std::atomic<bool> mStop{false};
    std::atomic<std::chrono::steady_clock::time_point> mFired{};
    sem_t mWanted{};
    std::thread mThread;
};

} // namespace

static void EventLoopWakeUp(benchmark::State& aState)
{
    Firing firing;
    EventLoop loop;
    for (auto _ : aState) {
        loop.addQuitable(&firing.sender, SIGNAL(destroyed()), Qt::QueuedConnection);
        firing.request();
        loop.exec(0);
        aState.SetIterationTime(firing.secondsSinceFired());
    }
}
BENCHMARK(EventLoopWakeUp)->UseManualTime();

/** As it is written by hand: a loop for one wait, which is gone when the wait is over. */
static void waitBare(Firing& aFiring)
{
    QEventLoop loop;
    QObject::connect(&aFiring.sender, SIGNAL(destroyed()), &loop, SLOT(quit()), Qt::QueuedConnection);
    aFiring.request();
    loop.exec();
}

static void BareEventLoopWakeUp(benchmark::State& aState)
{
    Firing firing;
    for (auto _ : aState) {
        waitBare(firing);
        aState.SetIterationTime(firing.secondsSinceFired());
    }
}
BENCHMARK(BareEventLoopWakeUp)->UseManualTime();
