#pragma once

#include <QThread>
#include <functional>
#include <memory>
#include <utility>

#include <platform/bus/BusWork.h>
#include <platform/bus/Connector.h>

namespace Bus {

/**
 * The client of a service, a generated proxy, that is built without anybody waiting for it: its constructor
 * and the first connection to each of its signals wait for the bus. It lives on the thread that made this,
 * where its signals arrive. Main thread only, as its owner; see BusWork for what that has to keep alive.
 */
template <class Client>
class ServiceClient
{
public:
    /** A piece of work on the client: to connect its signals, or to call it without waiting for the answer.
     */
    using Use = std::function<void(Client& aClient)>;

    explicit ServiceClient(Connector aConnector)
    {
        mWork.add([this, connector = std::move(aConnector), home = QThread::currentThread()] {
            mClient = std::make_unique<Client>(connector());
            mClient->moveToThread(home);
        });
    }
    Q_DISABLE_COPY(ServiceClient)

    /** In its turn, on the thread of the bus work. */
    void perform(Use aUse)
    {
        mWork.add([this, use = std::move(aUse)] { use(*mClient); });
    }
    /** Waits until all that was asked for is done; for a call whose answer is waited for as well. */
    Client& wait()
    {
        mWork.finish();
        return *mClient;
    }

private:
    std::unique_ptr<Client> mClient;
    BusWork mWork; ///< ends first
};

} // namespace Bus
