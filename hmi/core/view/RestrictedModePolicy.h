#pragma once

#include <QObject>

namespace Hmi::Core {

/**
 * Decides whether the HMI is in restricted mode, the mode in which actions are limited because the vehicle
 * may move. A product derives from it and installs its object in the RestrictedModeManager. Main thread only.
 */
class Q_DECL_EXPORT RestrictedModePolicy : public QObject
{
    Q_OBJECT

public:
    explicit RestrictedModePolicy(QObject* aParent = nullptr) : QObject(aParent) {}

    /** Called when the policy is installed: begins to watch whatever the decision comes from. */
    virtual void start() {}

    /** Called when the policy is replaced or its manager goes away. It may be started again later. */
    virtual void stop() {}

    /** Must answer at once, also before start() and after stop(). */
    virtual bool isRestrictedModeOn() const = 0;

signals:
    /**
     * Emitted once isRestrictedModeOn() answers with the new mode. It may come again with an unchanged mode:
     * the manager sorts that out.
     */
    void modeChanged(bool aRestrictedModeOn);
};

} // namespace Hmi::Core
