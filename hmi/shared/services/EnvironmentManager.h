#pragma once

#include <QObject>

namespace Hmi::Shared {

/**
 * Lets the HMI put parts of its start-up off until the application says that it is up: what can wait connects
 * to delayCompleted() while delayStartup is true. QML reaches the one instance as
 * HmiShared.environmentManager and may not create another. Main thread only.
 */
class Q_DECL_EXPORT EnvironmentManager : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool delayStartup READ getDelayStartup NOTIFY delayCompleted)

public:
    using QObject::QObject;

    /** True until completeStartup(). */
    bool getDelayStartup() const { return mDelayStartup; }

    /** Ends the delay, once and for all; later calls do nothing. */
    Q_INVOKABLE void completeStartup();

public slots:
    /** Accepted from platforms that take a snapshot of the started system; without effect. */
    void snapshotReady() {}

signals:
    void delayCompleted();

private:
    bool mDelayStartup = true;
};

} // namespace Hmi::Shared
