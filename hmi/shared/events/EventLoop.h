#pragma once

#include <QEventLoop>
#include <QMetaObject>
#include <QObject>
#include <memory>
#include <vector>

#include <hmi/shared/events/EventLoopWaitable.h>

namespace Hmi::Shared {

/**
 * A local event loop that runs until some signal arrives, all of a set of signals have arrived, or a time-out
 * passes, while events keep being processed.
 *
 *     EventLoop loop;
 *     loop.addWaitable(service, SIGNAL(registered()));
 *     loop.addQuitable(service, SIGNAL(failed(int)));
 *     if (loop.exec(2000) == EventLoop::s_exitCodeTimeout)
 *
 * A quitable ends the wait at once; the waitables end it when each has arrived at least once. Both count from
 * the moment they are added, so that a signal before exec() is not lost; waitables that belong together are
 * therefore added before the first of them can arrive. What ends a run first decides its result. When exec()
 * returns nothing is connected any more, queued signals still under way are dropped, and the loop can be used
 * again.
 *
 * The loop belongs to one thread; signals of other threads must come through queued connections
 * (Qt::AutoConnection does so). While exec() is running it must not be deleted, nor may a slot call
 * deleteLater().
 *
 * The loop logs nothing itself. A null sender or a signal that does not exist is reported by Qt's warning
 * about the connection. Such a signal never arrives, nor does that of a destroyed sender: a waitable then
 * stays pending, and only a quitable or the time-out ends the run.
 */
class Q_DECL_EXPORT EventLoop : public QEventLoop
{
    Q_OBJECT
public:
    /** A quitable fired or every waitable arrived, during the run or before it. */
    static constexpr int s_exitCodeSuccess = 0;
    static constexpr int s_exitCodeTimeout = 1;

    explicit EventLoop(QObject* aParent = nullptr);
    ~EventLoop() override;

    // Signals are given in SIGNAL() form.
    void addQuitable(QObject* aSender, const char* aSignal, Qt::ConnectionType aType = Qt::AutoConnection);
    void addWaitable(QObject* aSender, const char* aSignal, Qt::ConnectionType aType = Qt::AutoConnection);

    /**
     * Waits for what was added, and for the sender's signal as a quitable when both are given. A wait that is
     * already satisfied processes no event. aTimeoutMs is in milliseconds and never cut short; 0 or less sets
     * no limit.
     *
     * Returns an exit code from above. When the application or the thread quits during the run, the result is
     * its return code; when it had quit before, -1. A call from a slot of the very run that is waiting is
     * refused by Qt with a warning: it returns -1, adds nothing and leaves that run as it was.
     */
    int exec(int aTimeoutMs, QObject* aSender = nullptr, const char* aSignal = nullptr,
             Qt::ConnectionType aType = Qt::AutoConnection);

public slots:
    void handleEventQuitable();
    void handleEventWaitable();
    void timeout();

private:
    int run(int aTimeoutMs);
    void cleanUp();

    std::vector<QMetaObject::Connection> mConnections; ///< one a quitable, two a waitable
    std::vector<std::unique_ptr<EventLoopWaitable>> mWaitables;
    bool mMayRun = true; ///< false once the wait is satisfied, until the run is cleaned up
};

} // namespace Hmi::Shared
