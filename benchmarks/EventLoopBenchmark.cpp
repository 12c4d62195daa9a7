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
    EventLoop loop(nullptr);
    for (auto _ : aState) {
        firing.request();
        loop.exec(1000, &firing.sender, SIGNAL(destroyed()), Qt::QueuedConnection);
        aState.SetIterationTime(firing.secondsSinceFired());
    }
}
BENCHMARK(EventLoopWakeUp)->UseManualTime();

static void BareEventLoopWakeUp(benchmark::State& aState)
{
    Firing firing;
    QEventLoop loop;
    QObject::connect(&firing.sender, SIGNAL(destroyed()), &loop, SLOT(quit()),
                     Qt::QueuedConnection);
    for (auto _ : aState) {
        firing.request();
        loop.exec();
        aState.SetIterationTime(firing.secondsSinceFired());
    }
}
BENCHMARK(BareEventLoopWakeUp)->UseManualTime();
