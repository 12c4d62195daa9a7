#include <hmi/shared/events/ElapsedTimer.h>

namespace Hmi::Shared {

ElapsedTimer::~ElapsedTimer() = default;

qint64 ElapsedTimer::getElapsedMs() const { return mStarted ? mTimer.elapsed() : 0; }

void ElapsedTimer::start()
{
    mStarted = true;
    mTimer.start();
}

} // namespace Hmi::Shared
