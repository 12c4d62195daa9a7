#pragma once

#include <QJsonObject>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QVariant>

#include <hmi/core/resources/ResourceManager.h>

namespace Hmi::Core {

/**
 * The JSON object of a defaults resource, by the resource's id:
 *
 *     HandleDefaultsResource { id: defaults; resourceId: "DEFAULTS_SETTINGS_SHARED" }
 *     Text { text: defaults.object.timeFormat }
 *
 * The handle follows the registry: it is read again when its id stands for another file. An id that no table
 * has leaves the handle invalid, without a message, as its bundle may come later. A file that is no JSON
 * object is reported once, as a warning with file and offset, and leaves the handle invalid. Main thread
 * only.
 */
class Q_DECL_EXPORT HandleDefaultsResource : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString resourceId READ getResourceId WRITE setResourceId NOTIFY resourceIdChanged)
    Q_PROPERTY(QJsonObject object READ getObject NOTIFY objectChanged)
    Q_PROPERTY(bool valid READ isValid NOTIFY validChanged)

public:
    /** A handle without id on the registry of the process. */
    explicit HandleDefaultsResource(QObject* aParent = nullptr);
    /** A handle on the registry of the process. */
    explicit HandleDefaultsResource(const QString& aResourceId, QObject* aParent = nullptr);
    HandleDefaultsResource(const QString& aResourceId, ResourceManager& aManager, QObject* aParent = nullptr);

    QString getResourceId() const { return mResourceId; }
    void setResourceId(const QString& aResourceId);

    /** Empty while the handle is invalid. */
    QJsonObject getObject() const { return mObject; }

    bool isValid() const { return mValid; }

    /** The member's value, or the fallback when the object has no such member. */
    Q_INVOKABLE QVariant value(const QString& aName, const QVariant& aFallback = QVariant()) const;

signals:
    void resourceIdChanged();
    void objectChanged();
    void validChanged();

private:
    void follow();
    void setContent(const QJsonObject& aObject, bool aValid);

    QPointer<ResourceManager> mManager;
    QString mResourceId;
    QString mFile;
    QJsonObject mObject;
    bool mValid = false;
};

} // namespace Hmi::Core
