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

static bool readSwitch(const QVariant& aValue, bool& aSwitch)
{
    QVariant value = aValue;
    if (!value.convert(QMetaType::Bool))
        return false;
    aSwitch = value.toBool();
    return true;
}

SignalVehiclePolicy::SignalVehiclePolicy(const std::shared_ptr<SignalService::TransportProxy>& aTransport,
                                         const VehicleSignalConfigs& aSignals, QObject* aParent) :
    VehicleInformationPolicy(aParent), mTransport(aTransport), mDriven(this)
{
    if (!mTransport)
        return;
    mOnline = mTransport->IsConnected();
    connect(mTransport.get(), &SignalService::TransportProxy::ConnectedChanged, this,
            &SignalVehiclePolicy::setOnline);
    follow(aSignals.getSpeed(), &SignalVehiclePolicy::takeSpeed);
    follow(aSignals.getGear(), &SignalVehiclePolicy::takeGear);
    follow(aSignals.getOdometer(), &SignalVehiclePolicy::takeOdometer);
    follow(aSignals.getTrip(), &SignalVehiclePolicy::takeTrip);
    follow(aSignals.getFuelRange(), &SignalVehiclePolicy::takeFuelRange);
    follow(aSignals.getVehicleMoving(), &SignalVehiclePolicy::takeVehicleMoving);
    follow(aSignals.getAirTemperature(), &SignalVehiclePolicy::takeAirTemperature);
    follow(aSignals.getNight(), &SignalVehiclePolicy::takeNight);
    // The values are there when the screens are.
    mTransport->Flush();
}

double SignalVehiclePolicy::getDrivenDistance()
{
    return mOdometerRead ? static_cast<double>(mDriven.getDistance()) : qQNaN();
}

/** Told also after each attempt to connect that failed. */
void SignalVehiclePolicy::setOnline(bool aOnline)
{
    if (mOnline == aOnline)
        return;
    mOnline = aOnline;
    if (!aOnline) {
        takeSpeed(QVariant());
        takeGear(QVariant());
    }
    emit onlineChanged();
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
    const qint64 metres = std::llround(kilometres * MetresInKilometre);
    setOdometer(metres);
    if (!mOdometerRead) {
        mOdometerRead = true;
        mDriven.resetDistance();
        emit odometerChanged();
    }
    return true;
}

bool SignalVehiclePolicy::takeTrip(const QVariant& aValue)
{
    return assignNumber(mTripDistance, aValue, MetresInKilometre, &SignalVehiclePolicy::tripDistanceChanged);
}

bool SignalVehiclePolicy::takeFuelRange(const QVariant& aValue)
{
    double metres = 0.0;
    if (!readNumber(aValue, metres))
        return false;
    setFuelRange(static_cast<float>(metres));
    return true;
}

bool SignalVehiclePolicy::takeSpeed(const QVariant& aValue)
{
    return assignNumber(mSpeed, aValue, 1.0, &SignalVehiclePolicy::speedChanged);
}

bool SignalVehiclePolicy::takeVehicleMoving(const QVariant& aValue)
{
    bool moving = false;
    if (!readSwitch(aValue, moving))
        return false;
    setVehicleMoving(moving);
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

bool SignalVehiclePolicy::takeAirTemperature(const QVariant& aValue)
{
    return assignNumber(mAirTemperature, aValue, 1.0, &SignalVehiclePolicy::airTemperatureChanged);
}

bool SignalVehiclePolicy::takeNight(const QVariant& aValue)
{
    bool night = false;
    if (!readSwitch(aValue, night))
        return false;
    if (mNight != night) {
        mNight = night;
        emit nightChanged();
    }
    return true;
}

/** What cannot be read is not known any more. */
bool SignalVehiclePolicy::assignNumber(double& aField, const QVariant& aValue, double aFactor,
                                       Signal aChanged)
{
    double number = 0.0;
    const bool read = readNumber(aValue, number);
    const double value = read ? number * aFactor : qQNaN();
    if (aField != value && !(std::isnan(aField) && std::isnan(value))) {
        aField = value;
        emit(this->*aChanged)();
    }
    return read;
}
