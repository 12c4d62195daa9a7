#pragma once

#include <QObject>
#include <QQueue>
#include <QString>
#include <QVariant>
#include <memory>

namespace SignalService {
class TransportProxy;
class TxSignalProxy;
} // namespace SignalService

namespace Hmi::Shared::SignalService {

/**
 * A writable vehicle signal in QML, "TxSignalProxy":
 *
 *     TxSignalProxy {
 *         id: temperature
 *         path: "Vehicle.Cabin.HVAC.Station.Row1.Left.Temperature"
 *         onPutValueFail: console.warn("The temperature was not set")
 *     }
 *     Slider { onMoved: temperature.putValue(value) }
 *
 * Each put is answered once, in order: by the service, or with putValueFail() when the line breaks or the
 * path changes before it could. All of them share one connection. Where the configuration does not enable the
 * signal service, every put fails.
 */
class Q_DECL_EXPORT TxSignalProxy : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString path READ getPath WRITE setPath NOTIFY pathChanged)

public:
    explicit TxSignalProxy(QObject* aParent = nullptr);
    ~TxSignalProxy() override;

    QString getPath() const { return mPath; }
    void setPath(const QString& aPath);

    /**
     * The type of the value decides about its form: bool, int, double or string; any other fails. In script,
     * a number written whole (22) is an int, and a property of type real a double whatever it holds. Fails
     * before it returns when nothing could be sent.
     */
    Q_INVOKABLE void putValue(const QVariant& aValue);

public slots:
    /** 0 is success. Answers to puts of others with the same path are ignored while none of this object
     * waits. */
    void onPutValueResult(int aStatus);

signals:
    void pathChanged();
    void putValueSuccess(const QVariant& value);
    void putValueFail();

private:
    void onConnectedChanged(bool aConnected);
    void failWaiting();

    const std::shared_ptr<::SignalService::TransportProxy> mTransport;
    std::unique_ptr<::SignalService::TxSignalProxy> mProxy;
    QString mPath;
    QQueue<QVariant> mWaiting; ///< values that were sent and not answered yet
};

} // namespace Hmi::Shared::SignalService
