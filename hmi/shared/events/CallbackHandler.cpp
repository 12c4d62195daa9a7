#include <hmi/shared/events/CallbackHandler.h>

#include <QMutexLocker>
#include <utility>

namespace Hmi::Shared {

CallbackHandler::CallbackHandler(QObject* aParent) : QObject(aParent) {}

void CallbackHandler::addCallback(Callback aCallback)
{
    if (!aCallback)
        return;
    const QMutexLocker lock(&mMutex);
    if (mHandled)
        aCallback();
    else
        mCallbacks.push_back(std::move(aCallback));
}

void CallbackHandler::handleCallbacks()
{
    const QMutexLocker lock(&mMutex);
    for (const Callback& callback : mCallbacks)
        callback();
    mCallbacks.clear();
    mHandled = true;
}

} // namespace Hmi::Shared
