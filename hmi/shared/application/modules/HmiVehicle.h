#pragma once

#include <QString>
#include <QStringList>

#include <hmi/core/foundation/SingletonQml.h>

namespace Hmi::Shared {

/**
 * The constants of the vehicle, "HmiVehicle" in QML; an object for every engine. The transmission positions
 * are the texts that the vehicle's transmission signal carries.
 */
class Q_DECL_EXPORT HmiVehicle : public Core::SingletonQml<HmiVehicle>
{
    Q_OBJECT
    Q_PROPERTY(QString transmissionPark READ getTransmissionPark CONSTANT)
    Q_PROPERTY(QString transmissionReverse READ getTransmissionReverse CONSTANT)
    Q_PROPERTY(QString transmissionNeutral READ getTransmissionNeutral CONSTANT)
    Q_PROPERTY(QString transmissionDrive READ getTransmissionDrive CONSTANT)
    Q_PROPERTY(QStringList transmissionPositions READ getTransmissionPositions CONSTANT)
    friend class Core::SingletonQml<HmiVehicle>;

public:
    QString getTransmissionPark() const { return QStringLiteral("P"); }
    QString getTransmissionReverse() const { return QStringLiteral("R"); }
    QString getTransmissionNeutral() const { return QStringLiteral("N"); }
    QString getTransmissionDrive() const { return QStringLiteral("D"); }

    /** In the order of the selector. */
    QStringList getTransmissionPositions() const
    {
        return {getTransmissionPark(), getTransmissionReverse(), getTransmissionNeutral(),
                getTransmissionDrive()};
    }

private:
    HmiVehicle(QQmlEngine*, QJSEngine*) {}
};

} // namespace Hmi::Shared
