#include <simulator/signal-service/SignalServer.h>

#include <QFile>
#include <algorithm>

#include <simulator/Console.h>
#include <simulator/signal-service/ResponseFrames.h>
#include <simulator/signal-service/ServiceSocket.h>

namespace Hmi::Simulator {

SignalServer::SignalServer(SignalTable& aTable, Upstream* aUpstream, QObject* aParent) :
    QObject(aParent), mRequests(aTable, aUpstream)
{
    connect(&mServer, &QLocalServer::newConnection, this, &SignalServer::onNewConnection);
}

SignalServer::~SignalServer()
{
    for (SignalClient* const client : mClients)
        mRequests.forget(*client);
    if (mServer.isListening())
        QFile::remove(mPath);
}

bool SignalServer::listen(const QString& aPath, uint aPermissions)
{
    mPath = aPath;
    ServiceSocket socket;
    const int descriptor = socket.open(aPath, aPermissions);
    if (descriptor >= 0 && mServer.listen(descriptor))
        return true;
    Console::printError(descriptor < 0 ? socket.getError() : mServer.errorString());
    return false;
}

void SignalServer::onNewConnection()
{
    while (QLocalSocket* const socket = mServer.nextPendingConnection()) {
        auto* const client = new SignalClient(socket, this);
        client->setDelay(mDelay);
        connect(client, &SignalClient::requested, &mRequests, &SignalRequests::answer);
        connect(client, &SignalClient::disconnected, this, [this, client] { remove(client); });
        mClients.push_back(client);
        Console::print(QStringLiteral("connected %1").arg(mClients.size()));
    }
}

void SignalServer::remove(SignalClient* aClient)
{
    mRequests.forget(*aClient);
    mClients.erase(std::remove(mClients.begin(), mClients.end(), aClient), mClients.end());
    aClient->deleteLater();
    Console::print(QStringLiteral("disconnected %1").arg(mClients.size()));
}

int SignalServer::drop()
{
    for (SignalClient* const client : mClients)
        client->disconnectNow();
    return static_cast<int>(mClients.size());
}

int SignalServer::stall()
{
    for (SignalClient* const client : mClients)
        client->stall(ResponseFrames::firstHalf());
    return static_cast<int>(mClients.size());
}

int SignalServer::garbage()
{
    for (SignalClient* const client : mClients)
        client->send(ResponseFrames::noMessage());
    return static_cast<int>(mClients.size());
}

int SignalServer::setDelay(int aMilliseconds)
{
    mDelay = aMilliseconds;
    for (SignalClient* const client : mClients)
        client->setDelay(aMilliseconds);
    return static_cast<int>(mClients.size());
}

} // namespace Hmi::Simulator
