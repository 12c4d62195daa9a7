#include "SignalVehiclePolicy.h"

#include <cmath>

#include "VehicleSignalConfigs.h"
#include <hmi/shared/signal-service/RxSignalProxy.h>
#include <hmi/shared/signal-service/TransportProxy.h>

using SignalService::RxSignalProxy;

static constexpr double MetresInKilometre = 1000.0;
static constexpr double LargestOdometer = 1e12;

/** Of a signal that is sent as whole or as floating-point number. */
static bool readNumber(const QVariant& aValue, double& aNumber)
{
    bool read = false;
    aNumber = aValue.toInt(&read);
    if (!read)
        aNumber = aValue.toDouble(&read);
    return read && std::isfinite(aNumber);
}

SignalVehiclePolicy::SignalVehiclePolicy(const std::shared_ptr<SignalService::TransportProxy>& aTransport,
                                         const VehicleSignalConfigs& aSignals, QObject* aParent) :
    VehicleInformationPolicy(aParent), mTransport(aTransport)
{
    if (!mTransport)
        return;
    follow(aSignals.getOdometer(), &SignalVehiclePolicy::takeOdometer);
    follow(aSignals.getFuelRange(), &SignalVehiclePolicy::takeFuelRange);
    follow(aSignals.getVehicleMoving(), &SignalVehiclePolicy::takeVehicleMoving);
    follow(aSignals.getGear(), &SignalVehiclePolicy::takeGear);
}

/** An empty path switches the signal off. */
void SignalVehiclePolicy::follow(const QString& aPath, Take aTake)
{
    if (aPath.isEmpty())
        return;
    auto* const proxy = new RxSignalProxy(*mTransport, aPath, this);
    connect(proxy, &RxSignalProxy::ValueUpdated, this,
            [this, proxy, aTake](const QVariant& aValue, int aStatus) {
                if (!(this->*aTake)(aStatus == 0 ? aValue : QVariant()) && aStatus == 0)
                    qWarning("The value of the signal '%s' is not of its type and was left out.",
                             qUtf8Printable(proxy->GetPath()));
            });
    proxy->RequestUpdates();
}

bool SignalVehiclePolicy::takeOdometer(const QVariant& aValue)
{
    double kilometres = 0.0;
    if (!readNumber(aValue, kilometres) || kilometres < 0.0 || kilometres > LargestOdometer)
        return false;
    setOdometer(std::llround(kilometres * MetresInKilometre));
    return true;
}

bool SignalVehiclePolicy::takeFuelRange(const QVariant& aValue)
{
    double metres = 0.0;
    if (!readNumber(aValue, metres))
        return false;
    setFuelRange(static_cast<float>(metres));
    return true;
}

bool SignalVehiclePolicy::takeVehicleMoving(const QVariant& aValue)
{
    QVariant moving = aValue;
    if (!moving.convert(QMetaType::Bool))
        return false;
    setVehicleMoving(moving.toBool());
    return true;
}

bool SignalVehiclePolicy::takeGear(const QVariant& aValue)
{
    const QString gear = aValue.toString();
    if (mGear != gear) {
        mGear = gear;
        emit gearChanged();
    }
    mRestrictedModePolicy.handleSignalServiceGearStatus(gear);
    return true;
}
