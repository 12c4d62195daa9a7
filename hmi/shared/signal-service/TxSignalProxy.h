#pragma once

#include <QObject>
#include <QPointer>
#include <QString>
#include <string>

namespace SignalService {

class DataBuffer;
class TransportProxy;

/**
 * Writes one vehicle signal, named by its path. It announces itself to the service when it is made and each
 * time the service returns.
 *
 * May be destroyed at any time, its own slots included. After its transport is gone it does nothing. Main
 * thread only.
 */
class Q_DECL_EXPORT TxSignalProxy : public QObject
{
    Q_OBJECT

public:
    /** The path is not empty and short enough for a request (about 250 bytes of UTF-8). */
    TxSignalProxy(TransportProxy& aTransport, const QString& aPath, QObject* aParent = nullptr);
    ~TxSignalProxy() override;

    QString GetPath() const { return QString::fromStdString(mPath); }
    /** The path as it travels, in UTF-8. */
    const std::string& GetPathBytes() const { return mPath; }

    /**
     * Sends the value; PutValueResult() follows when the service has answered. False, and nothing is sent,
     * while the service is away or when path and value do not fit a message of 255 bytes.
     */
    bool PutValue(const DataBuffer& aValue);

public slots:
    void OnConnectedChanged(bool a_connected);

signals:
    /** The answer to a write of this path by any writer of this process; 0 is success. */
    void PutValueResult(int a_status);
    /** What the service has to say of the path, for people. */
    void TextReceived(const QString& a_text);

private:
    const std::string mPath;
    const QPointer<TransportProxy> mTransport;
};

} // namespace SignalService
