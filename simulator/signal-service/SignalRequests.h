#pragma once

#include <QObject>
#include <QPointer>
#include <deque>
#include <string>
#include <unordered_map>

#include <hmi/shared/signal-service/ProxyTable.h>
#include <simulator/signal-service/SignalClient.h>
#include <simulator/signal-service/SignalTable.h>

namespace Hmi::Simulator {

class Upstream;

/**
 * Answers the requests of all clients from the table, and tells those that asked of what happens there. What
 * is another service's it is asked for. Taken and refused writes are printed. The clients stay their owner's.
 */
class SignalRequests : public QObject
{
    Q_OBJECT

public:
    /** Both outlive it; without upstream, null. */
    SignalRequests(SignalTable& aTable, Upstream* aUpstream, QObject* aParent = nullptr);

    void answer(SignalClient& aClient, const SignalService::RequestMessage& aRequest);
    /** Before the client is destroyed. */
    void forget(SignalClient& aClient);

private:
    struct WaitingPut
    {
        QPointer<SignalClient> client;
        DataBuffer value;
    };

    void startUpdates(SignalClient& aClient, const std::string& aPath);
    void cancelUpdates(SignalClient& aClient, const std::string& aPath);
    void readOnce(SignalClient& aClient, const std::string& aPath);
    void put(SignalClient& aClient, const std::string& aPath, const DataBuffer& aValue);
    void putUpstream(SignalClient& aClient, const std::string& aPath, const DataBuffer& aValue);
    /** Why the table's signal cannot take the value; empty when it can. */
    QString refusalOf(const std::string& aPath, const DataBuffer& aValue) const;
    void announceReader(SignalClient& aClient, const std::string& aPath);
    void announceWriter(SignalClient& aClient, const std::string& aPath);
    void list(SignalClient& aClient);
    void tell(SignalService::ProxyTable<SignalClient>& aClients, const std::string& aPath,
              SignalService::ResponseType aType);
    void publish(const std::string& aPath, const Signal& aSignal);
    void onUpstreamValue(const std::string& aPath, const std::optional<DataBuffer>& aValue);
    void onUpstreamPut(const std::string& aPath, int aStatus);
    void onUpstreamLost();
    /** Whether upstream has the say about the path. */
    bool isUpstream(const std::string& aPath) const;

    SignalTable& mTable;
    Upstream* const mUpstream;
    SignalService::ProxyTable<SignalClient> mSubscribers;
    SignalService::ProxyTable<SignalClient> mReaders; ///< announced
    SignalService::ProxyTable<SignalClient> mWriters; ///< announced
    SignalService::ProxyTable<SignalClient> mWaiting; ///< for upstream's value
    std::unordered_map<std::string, std::deque<WaitingPut>> mPuts;
};

} // namespace Hmi::Simulator
