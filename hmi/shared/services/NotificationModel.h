#pragma once

#include <QObject>
#include <QString>

namespace Hmi::Shared::NotificationFramework {

/**
 * One notification as screens see it. Everything but the position stays as it was made. QML may not create
 * it. GUI thread only.
 */
class Q_DECL_EXPORT NotificationModel : public QObject
{
    Q_OBJECT
    /** Whether several notifications of this type may be shown at a time. */
    Q_PROPERTY(bool allowMultiple READ getAllowMultiple CONSTANT)
    Q_PROPERTY(QString description READ getDescription CONSTANT)
    Q_PROPERTY(bool isLocationValid READ getIsLocationValid NOTIFY isLocationValidChanged)
    /** Degrees, WGS 84; UnknownPosition at first, which no position has. */
    Q_PROPERTY(float latitude READ getLatitude NOTIFY latitudeChanged)
    Q_PROPERTY(float longitude READ getLongitude NOTIFY longitudeChanged)
    /** Assigned by the service. */
    Q_PROPERTY(int notificationId READ getNotificationId CONSTANT)
    /** The higher, the more urgent. */
    Q_PROPERTY(int priority READ getPriority CONSTANT)
    /** A name that the service knows. */
    Q_PROPERTY(QString notificationType READ getNotificationType CONSTANT)
    /** Of the thing notified about, within its type. */
    Q_PROPERTY(QString typeSpecificIdentifier READ getTypeSpecificIdentifier CONSTANT)

public:
    static constexpr float UnknownPosition = 999.0F;

    NotificationModel(const QString& aDescription, int aNotificationId, int aPriority, bool aAllowMultiple,
                      const QString& aNotificationType, const QString& aTypeSpecificIdentifier,
                      QObject* aParent = nullptr);

    bool getAllowMultiple() const { return mAllowMultiple; }
    QString getDescription() const { return mDescription; }
    bool getIsLocationValid() const { return mIsLocationValid; }
    float getLatitude() const { return mLatitude; }
    float getLongitude() const { return mLongitude; }
    int getNotificationId() const { return mNotificationId; }
    int getPriority() const { return mPriority; }
    QString getNotificationType() const { return mNotificationType; }
    QString getTypeSpecificIdentifier() const { return mTypeSpecificIdentifier; }

    /** Tells of what changed, in the order of the arguments. */
    void setLocation(bool aIsValid, float aLatitude, float aLongitude);

signals:
    void isLocationValidChanged();
    void latitudeChanged();
    void longitudeChanged();

private:
    const bool mAllowMultiple;
    const QString mDescription;
    bool mIsLocationValid = false;
    float mLatitude = UnknownPosition;
    float mLongitude = UnknownPosition;
    const int mNotificationId;
    const int mPriority;
    const QString mNotificationType;
    const QString mTypeSpecificIdentifier;
};

} // namespace Hmi::Shared::NotificationFramework
