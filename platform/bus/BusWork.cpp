#include <platform/bus/BusWork.h>

#include <condition_variable>
#include <deque>
#include <mutex>
#include <thread>
#include <utility>

namespace Bus {

/** Runs from the first user to the last. */
class WorkThread
{
public:
    WorkThread() : mThread([this] { run(); }) {}
    ~WorkThread();

    /** The piece's number. */
    unsigned long long add(std::function<void()> aPiece);
    void waitFor(unsigned long long aNumber);

private:
    void run();

    std::mutex mMutex;
    std::condition_variable mNew;
    std::condition_variable mCarriedOut;
    std::deque<std::function<void()>> mPieces;
    unsigned long long mAdded = 0;
    unsigned long long mDone = 0;
    bool mEnding = false;
    std::thread mThread;
};

WorkThread::~WorkThread()
{
    {
        const std::lock_guard<std::mutex> lock(mMutex);
        mEnding = true;
    }
    mNew.notify_one();
    mThread.join();
}

unsigned long long WorkThread::add(std::function<void()> aPiece)
{
    unsigned long long number = 0;
    {
        const std::lock_guard<std::mutex> lock(mMutex);
        mPieces.push_back(std::move(aPiece));
        number = ++mAdded;
    }
    mNew.notify_one();
    return number;
}

void WorkThread::waitFor(unsigned long long aNumber)
{
    std::unique_lock<std::mutex> lock(mMutex);
    mCarriedOut.wait(lock, [&] { return mDone >= aNumber; });
}

void WorkThread::run()
{
    std::unique_lock<std::mutex> lock(mMutex);
    for (;;) {
        mNew.wait(lock, [this] { return mEnding || !mPieces.empty(); });
        if (mPieces.empty())
            return;
        std::function<void()> piece = std::move(mPieces.front());
        mPieces.pop_front();
        lock.unlock();
        piece();
        // What it holds goes before anybody hears that it is done.
        piece = nullptr;
        lock.lock();
        ++mDone;
        mCarriedOut.notify_all();
    }
}

static std::shared_ptr<WorkThread> sharedThread()
{
    static std::weak_ptr<WorkThread> sThread;
    std::shared_ptr<WorkThread> thread = sThread.lock();
    if (!thread) {
        thread = std::make_shared<WorkThread>();
        sThread = thread;
    }
    return thread;
}

BusWork::BusWork() : mThread(sharedThread()) {}

BusWork::~BusWork() { finish(); }

void BusWork::add(std::function<void()> aPiece) { mLast = mThread->add(std::move(aPiece)); }

void BusWork::finish() { mThread->waitFor(mLast); }

} // namespace Bus
