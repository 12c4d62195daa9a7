#include <hmi/shared/application/PerfEventPolicyMetron.h>

namespace Hmi::Shared {

PerfEventPolicyMetron::PerfEventPolicyMetron(QObject* aParent) : Core::PerfEventPolicyBase(aParent) {}

void PerfEventPolicyMetron::raiseEvent(const QString& aEventName) { mEvents.raise(aEventName); }

} // namespace Hmi::Shared
