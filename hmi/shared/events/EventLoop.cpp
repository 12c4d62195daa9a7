#include <hmi/shared/events/EventLoop.h>

#include <QCoreApplication>
#include <QEvent>
#include <QTimer>
#include <algorithm>
#include <utility>

namespace Hmi::Shared {

EventLoop::EventLoop(QObject* aParent) : QEventLoop(aParent) {}

EventLoop::~EventLoop() { cleanUp(); }

void EventLoop::addQuitable(QObject* aSender, const char* aSignal, Qt::ConnectionType aType)
{
    mConnections.push_back(connect(aSender, aSignal, this, SLOT(handleEventQuitable()), aType));
}

void EventLoop::addWaitable(QObject* aSender, const char* aSignal, Qt::ConnectionType aType)
{
    auto waitable = std::make_unique<EventLoopWaitable>();
    mConnections.push_back(connect(aSender, aSignal, waitable.get(), SLOT(handleEvent()), aType));
    mConnections.push_back(
        connect(waitable.get(), &EventLoopWaitable::done, this, &EventLoop::handleEventWaitable));
    mWaitables.push_back(std::move(waitable));
}

int EventLoop::exec(int aTimeoutMs, QObject* aSender, const char* aSignal, Qt::ConnectionType aType)
{
    if (isRunning())
        return QEventLoop::exec(); // refused with Qt's warning, before anything of the outer run is touched
    if (aSender && aSignal)
        addQuitable(aSender, aSignal, aType);
    const int result = mMayRun ? run(aTimeoutMs) : s_exitCodeSuccess;
    cleanUp();
    return result;
}

int EventLoop::run(int aTimeoutMs)
{
    QTimer timer;
    if (aTimeoutMs > 0) {
        connect(&timer, &QTimer::timeout, this, &EventLoop::timeout);
        timer.setTimerType(Qt::PreciseTimer);
        timer.start(aTimeoutMs);
    }
    const int result = QEventLoop::exec();
    timer.stop();
    return result;
}

void EventLoop::cleanUp()
{
    for (; !mConnections.empty(); mConnections.pop_back())
        disconnect(mConnections.back());
    // Disconnecting does not recall a queued signal; left alone it would satisfy the next wait.
    QCoreApplication::removePostedEvents(this, QEvent::MetaCall);
    mWaitables.clear();
    mMayRun = true;
}

void EventLoop::handleEventQuitable()
{
    mMayRun = false;
    if (isRunning())
        exit(s_exitCodeSuccess);
}

void EventLoop::handleEventWaitable()
{
    const bool allReceived = std::all_of(mWaitables.cbegin(), mWaitables.cend(),
                                         [](const auto& waitable) { return waitable->isEventReceived(); });
    if (allReceived)
        handleEventQuitable();
}

void EventLoop::timeout()
{
    // A time-out in the same round of events must not overrule the signal that ended the run.
    if (isRunning())
        exit(s_exitCodeTimeout);
}

} // namespace Hmi::Shared
