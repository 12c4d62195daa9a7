#include <platform/bus/BusWork.h>

#include <QCoreApplication>
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
    /** Waits until nothing is left to do. */
    void finish();

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

void WorkThread::finish()
{
    std::unique_lock<std::mutex> lock(mMutex);
    mCarriedOut.wait(lock, [this] { return mDone >= mAdded; });
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

static std::weak_ptr<WorkThread>& presentThread()
{
    static std::weak_ptr<WorkThread> sThread;
    return sThread;
}

/** Qt takes its bus connections away with the process, whoever still works on them. */
static void finishWithApplication()
{
    if (const std::shared_ptr<WorkThread> thread = presentThread().lock())
        thread->finish();
}

static std::shared_ptr<WorkThread> sharedThread()
{
    static const bool isFinished = (qAddPostRoutine(&finishWithApplication), true);
    Q_UNUSED(isFinished)
    std::shared_ptr<WorkThread> thread = presentThread().lock();
    if (!thread) {
        thread = std::make_shared<WorkThread>();
        presentThread() = thread;
    }
    return thread;
}

BusWork::BusWork() : mThread(sharedThread()) {}

BusWork::~BusWork() { finish(); }

void BusWork::add(std::function<void()> aPiece) { mLast = mThread->add(std::move(aPiece)); }

void BusWork::finish() { mThread->waitFor(mLast); }

} // namespace Bus
