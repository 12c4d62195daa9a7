#pragma once

#include <QString>
#include <memory>

#include "SignalVehiclePolicy.h"
#include <hmi/shared/LifecycleListener.h>

/**
 * The product's vehicle as a module: while it is initialised, there is the policy, and restricted mode comes
 * from its gear.
 */
class VehicleModule : public Hmi::Shared::LifecycleListener
{
public:
    /** Null while the module is not initialised. */
    SignalVehiclePolicy* getPolicy() const { return mPolicy.get(); }

    QString getName() const override { return QStringLiteral("vehicle"); }
    bool initialize() override;
    void deInitialize() override;
    void deInitializeLate() override {}

private:
    std::unique_ptr<SignalVehiclePolicy> mPolicy;
};
