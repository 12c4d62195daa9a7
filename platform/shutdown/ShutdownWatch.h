#pragma once

#include <QByteArray>
#include <QString>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

namespace QT {

/**
 * Looks after the ordered shutdown while that runs; to be made on the main thread's stack, one at a time, and
 * before the ShutdownManager is deleted.
 *
 * The first SIGTERM or SIGINT of the process is the request to shut down, and if it only comes now it is
 * being met. A further one ends the process at once, with status 128 + signal. It is logged, from a thread of
 * the watch; when that takes more than LoggingTime, because the stuck main thread holds a lock or nobody
 * empties standard error, the line goes to standard error past the log if it can, and the process ends all
 * the same.
 *
 * A step that takes too long is named by a warning while it runs, and by an information of the time it took
 * when it ends late.
 *
 * The threads of the watch exist as long as it does. When it cannot be made, because there is another one or
 * no free file descriptor, a warning says so and it does nothing.
 */
class Q_DECL_EXPORT ShutdownWatch
{
public:
    static constexpr std::chrono::milliseconds DefaultStepTime{2000};
    static constexpr std::chrono::milliseconds LoggingTime{100};

    /** The step time is what a step may take before a warning names it. */
    explicit ShutdownWatch(std::chrono::milliseconds aStepTime = DefaultStepTime);
    /** Ends the last step. Puts the handlers of the signals back if the manager has been deleted. */
    ~ShutdownWatch();
    Q_DISABLE_COPY(ShutdownWatch)

    /** Ends the step before. */
    void beginStep(const QString& aName);

private:
    using Clock = std::chrono::steady_clock;
    enum class Lateness { InTime, Late, Told };

    void endStep();
    void watch();
    bool isTimed() const;
    int millisecondsLeft() const;
    void markLate();
    [[noreturn]] void endProcess(int aSignal, std::unique_lock<std::mutex>& aLock);
    void report();
    void reportOne(std::unique_lock<std::mutex>& aLock);

    const std::chrono::milliseconds mStepTime;
    std::mutex mMutex; ///< held for moments only: never while memory is allocated or something is logged
    std::condition_variable mChanged;
    QByteArray mStep;
    Clock::time_point mBegin = Clock::time_point::max();
    Lateness mLateness = Lateness::InTime;
    int mSignal = 0;
    bool mSignalTold = false;
    bool mEnding = false;
    std::thread mReporter;
    std::thread mWatcher; ///< neither logs nor allocates memory, so that nothing can hold it up
};

} // namespace QT
