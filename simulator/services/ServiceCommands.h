#pragma once

#include <QStringList>
#include <map>

#include <simulator/CommandTable.h>
#include <simulator/services/ServiceFaults.h>

namespace Hmi::Simulator {

class BusService;

/** The commands that every D-Bus service understands: faults, and signals with any values. */
class ServiceCommands
{
public:
    /** By the words of the command line. */
    using Services = std::map<QString, BusService*>;

    /** All outlive each other's use. */
    ServiceCommands(const Services& aServices, ServiceFaults& aFaults, CommandTable& aCommands);

private:
    void addFault(CommandTable& aCommands, const char* aName, const char* aPurpose,
                  ServiceFaults::Fault aFault);
    /** By its word or by its bus name; null, after an answer, where there is none. */
    BusService* find(const QString& aName) const;
    void vanish(const QStringList& aArguments);
    void comeBack(const QStringList& aArguments);
    void delay(const QStringList& aArguments);
    void beHonest(const QStringList& aArguments);

    const Services mServices;
    ServiceFaults& mFaults;
};

} // namespace Hmi::Simulator
