#pragma once

#include <QObject>
#include <QString>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>

#include <hmi/shared/signal-service/TransportProxy.h>
#include <simulator/signal-service/SignalTable.h>

namespace SignalService {
class RxSignalProxy;
class TxSignalProxy;
} // namespace SignalService

namespace Hmi::Simulator {

/**
 * Passes on the signals of another service: is its client, declares in the table which signals it has and
 * puts the values there. Their type is unknown. While that service is away the values stay as they are, and
 * what was subscribed is subscribed again when it returns; the library tells of both.
 */
class Upstream : public QObject
{
    Q_OBJECT

public:
    Upstream(SignalTable& aTable, const QString& aSocketPath, QObject* aParent = nullptr);
    ~Upstream() override;

    bool isConnected() const { return mTransport.IsConnected(); }
    bool isSubscribed(const std::string& aPath) const;

    void subscribe(const std::string& aPath);
    void cancel(const std::string& aPath);
    /** Also tells the service that the path is going to be read; valueArrived() follows. */
    void requestValue(const std::string& aPath);
    void announceWriter(const std::string& aPath);
    /** False, and nothing is sent, while the service is away; else putAnswered() or lost() follows. */
    bool put(const std::string& aPath, const DataBuffer& aValue);

signals:
    void valueArrived(const std::string& aPath, const std::optional<SignalService::DataBuffer>& aValue);
    void putAnswered(const std::string& aPath, int aStatus);
    /** What was not answered will not be, but for values. */
    void lost();

private:
    struct Reader
    {
        std::unique_ptr<SignalService::RxSignalProxy> proxy;
        bool subscribed = false;
    };
    Reader& readerOf(const std::string& aPath);
    SignalService::TxSignalProxy& writerOf(const std::string& aPath);
    void onConnectedChanged(bool aConnected);
    void onValue(const std::string& aPath, const DataBuffer& aBytes, int aStatus);

    SignalTable& mTable;
    SignalService::TransportProxy mTransport;
    std::unordered_map<std::string, Reader> mReaders;
    std::unordered_map<std::string, std::unique_ptr<SignalService::TxSignalProxy>> mWriters;
};

} // namespace Hmi::Simulator
