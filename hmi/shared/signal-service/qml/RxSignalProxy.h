#pragma once

#include <QObject>
#include <QString>
#include <QVariant>
#include <memory>

namespace SignalService {
class RxSignalProxy;
class TransportProxy;
} // namespace SignalService

namespace Hmi::Shared::SignalService {

/**
 * A readable vehicle signal in QML, "RxSignalProxy":
 *
 *     RxSignalProxy {
 *         property double speed
 *         path: "Vehicle.Speed"
 *         onValueUpdated: if (status === 0) speed = value
 *         Component.onCompleted: requestUpdates()
 *     }
 *
 * The value converts when it is assigned to a property of the signal's type: string, int, double (real) or
 * bool; one of another size makes the property 0 or false, without a message. All of them share one
 * connection. Where the configuration does not enable the signal service, nothing is ever updated.
 */
class Q_DECL_EXPORT RxSignalProxy : public QObject
{
    Q_OBJECT
    /** Updates follow the path: those of the old one are cancelled, a read that waits is forgotten. */
    Q_PROPERTY(QString path READ getPath WRITE setPath NOTIFY pathChanged)

public:
    explicit RxSignalProxy(QObject* aParent = nullptr);
    ~RxSignalProxy() override;

    QString getPath() const { return mPath; }
    void setPath(const QString& aPath);

    /** From now on, also of paths that are set later. */
    Q_INVOKABLE void requestUpdates();
    Q_INVOKABLE void cancelUpdates();
    /** Asks once, even if the answer waits until the service is there. */
    Q_INVOKABLE void requestUpdate();

signals:
    void pathChanged();
    /** A status other than 0 says that the value is not valid. */
    void valueUpdated(const QVariant& value, int status);

private:
    const std::shared_ptr<::SignalService::TransportProxy> mTransport;
    std::unique_ptr<::SignalService::RxSignalProxy> mProxy;
    QString mPath;
    bool mUpdating = false;
};

} // namespace Hmi::Shared::SignalService
