#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QStringList>
#include <memory>

#include <simulator/services/ServiceFaults.h>

namespace Hmi::Simulator {

class BusService;
class CommandTable;
class NotificationCommands;
class ServiceCommands;
class UpdateCommands;
struct Options;

/** The services on D-Bus that the command line wants, on one connection of their own. */
class ServiceSimulation : public QObject
{
    Q_OBJECT

public:
    /** What the services are called on the command line. */
    static QStringList getWords();

    /** The table outlives it. */
    explicit ServiceSimulation(CommandTable& aCommands);
    ~ServiceSimulation() override;

    /** False, with one message on standard error, when a service cannot be as it is wanted. */
    bool start(const Options& aOptions);

private:
    bool connectTo(const QString& aBus);
    std::unique_ptr<BusService> make(const QString& aWord, const Options& aOptions);
    bool serve(BusService& aService);

private slots:
    /** Signals of the connection are connected by name. */
    void onBusLost();

private:
    CommandTable& mCommandTable;
    ServiceFaults mFaults;
    std::vector<std::unique_ptr<BusService>> mServices;
    std::unique_ptr<UpdateCommands> mUpdateCommands;
    std::unique_ptr<NotificationCommands> mNotificationCommands;
    std::unique_ptr<ServiceCommands> mServiceCommands;
};

} // namespace Hmi::Simulator
