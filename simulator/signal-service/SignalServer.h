#pragma once

#include <QLocalServer>
#include <QObject>
#include <QString>
#include <vector>

#include <simulator/signal-service/SignalRequests.h>

namespace Hmi::Simulator {

/**
 * The service's socket with its clients, and the one place where faults are put on their lines. Prints how
 * many clients there are whenever one comes or goes. Removes the socket at its end.
 */
class SignalServer : public QObject
{
    Q_OBJECT

public:
    SignalServer(SignalTable& aTable, Upstream* aUpstream, QObject* aParent = nullptr);
    ~SignalServer() override;

    /** False, with one message on standard error, when there is no way to. */
    bool listen(const QString& aPath, uint aPermissions);

    // Faults. Each returns how many clients it met.
    int drop();
    /** Half a message and then nothing, until the client gives up and connects anew. */
    int stall();
    /** A frame that holds no message. */
    int garbage();
    /** Of every answer to the clients of now and later, in milliseconds. */
    int setDelay(int aMilliseconds);

private:
    void onNewConnection();
    void remove(SignalClient* aClient);

    SignalRequests mRequests;
    QLocalServer mServer;
    QString mPath;
    std::vector<SignalClient*> mClients;
    int mDelay = 0;
};

} // namespace Hmi::Simulator
