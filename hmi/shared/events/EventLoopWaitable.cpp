#include <hmi/shared/events/EventLoopWaitable.h>

namespace Hmi::Shared {

EventLoopWaitable::EventLoopWaitable(QObject* aParent) : QObject(aParent) {}

void EventLoopWaitable::handleEvent()
{
    if (mEventReceived)
        return;
    mEventReceived = true;
    emit done();
}

} // namespace Hmi::Shared
