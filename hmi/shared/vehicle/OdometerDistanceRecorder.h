#pragma once

#include <QPointer>

#include <hmi/shared/vehicle/VehicleInformationPolicy.h>

namespace Hmi::Shared {

/**
 * The distance driven since a moment, from the readings of the vehicle's odometer and in its unit. Without a
 * policy, or when it is gone, every reading is 0. GUI thread only.
 */
class Q_DECL_EXPORT OdometerDistanceRecorder
{
public:
    /** Does not read the odometer yet: the distance counts from 0 until resetDistance(). */
    explicit OdometerDistanceRecorder(const QPointer<VehicleInformationPolicy>& aPolicy);
    virtual ~OdometerDistanceRecorder() = default;

    /** Never negative: an odometer that went back gives 0 until it passes the start again. */
    virtual float getDistance();
    /** Begins to measure; returns the reading of now. */
    virtual qint64 resetDistance();

private:
    qint64 readOdometer() const;

    const QPointer<VehicleInformationPolicy> mPolicy;
    qint64 mStart = 0;
};

} // namespace Hmi::Shared
