#pragma once

#include <QObject>
#include <QPointer>
#include <QString>
#include <QVariant>
#include <string>

namespace SignalService {

class TransportProxy;

/**
 * Reads one vehicle signal, named by its path: once, or whenever it changes. What is asked for while the
 * service is away is asked when it comes, and again after each return, until it is answered or cancelled.
 *
 * May be destroyed at any time, its own slots included; what it had subscribed is cancelled then. After its
 * transport is gone it does nothing. Main thread only.
 */
class Q_DECL_EXPORT RxSignalProxy : public QObject
{
    Q_OBJECT

public:
    /** The path is not empty and short enough for a request (about 250 bytes of UTF-8). */
    RxSignalProxy(TransportProxy& aTransport, const QString& aPath, QObject* aParent = nullptr);
    ~RxSignalProxy() override;

    QString GetPath() const { return QString::fromStdString(mPath); }
    /** The path as it travels, in UTF-8. */
    const std::string& GetPathBytes() const { return mPath; }

    /**
     * Subscribes; a proxy that already has does nothing. False where no request can hold the path. The
     * service answers with the present value, if it has one.
     */
    bool RequestUpdates();
    void CancelUpdates();
    /** Asks for one value. Requests that are not answered yet are answered together. */
    bool RequestUpdate();

signals:
    /** The value is a DataBuffer; a status other than 0 says that it is not valid. */
    void ValueUpdated(const QVariant& a_value, int a_status);
    /** What the service has to say of the path, for people. */
    void TextReceived(const QString& a_text);

private:
    const std::string mPath;
    const QPointer<TransportProxy> mTransport;
};

} // namespace SignalService
