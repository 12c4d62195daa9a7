#pragma once

#include <hmi/core/foundation/PerfEventPolicyBase.h>
#include <platform/metron/EventRing.h>

namespace Hmi::Shared {

/**
 * Records performance markers with the platform's performance-event library: the latest
 * Metron::EventRing::Capacity events with their monotonic times. Raising an event is lock-free, allocates
 * nothing and may happen on any thread.
 */
class Q_DECL_EXPORT PerfEventPolicyMetron : public Core::PerfEventPolicyBase
{
    Q_OBJECT
public:
    explicit PerfEventPolicyMetron(QObject* aParent = nullptr);

    void raiseEvent(const QString& aEventName) override;

    /** The events recorded so far, oldest first. */
    QVector<Metron::Event> getEvents() const { return mEvents.events(); }

    /** For recordings of the events; lives as long as the policy. */
    const Metron::EventRing& getEventRing() const { return mEvents; }

private:
    Metron::EventRing mEvents;
};

} // namespace Hmi::Shared
