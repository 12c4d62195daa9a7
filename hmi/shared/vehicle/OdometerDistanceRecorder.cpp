#include <hmi/shared/vehicle/OdometerDistanceRecorder.h>

namespace Hmi::Shared {

OdometerDistanceRecorder::OdometerDistanceRecorder(const QPointer<VehicleInformationPolicy>& aPolicy) :
    mPolicy(aPolicy)
{}

float OdometerDistanceRecorder::getDistance()
{
    const qint64 reading = readOdometer();
    return reading < mStart ? 0.0F : static_cast<float>(reading - mStart);
}

qint64 OdometerDistanceRecorder::resetDistance()
{
    mStart = readOdometer();
    return mStart;
}

qint64 OdometerDistanceRecorder::readOdometer() const
{
    return mPolicy ? static_cast<qint64>(mPolicy->getOdometer()) : 0;
}

} // namespace Hmi::Shared
