#pragma once

#include <QObject>
#include <QString>

namespace Hmi::Core {

/**
 * Receives the performance markers of start-up and shutdown. The host creates a policy and hands it to the
 * core's initialisation; without one nothing is raised.
 */
class Q_DECL_EXPORT PerfEventPolicyBase : public QObject
{
    Q_OBJECT
public:
    explicit PerfEventPolicyBase(QObject* aParent = nullptr) : QObject(aParent) {}

    /** Records that the named event happens now, for example "Hmi/Core/loadConfigStart". Never blocks. */
    virtual void raiseEvent(const QString& aEventName) = 0;
};

} // namespace Hmi::Core
