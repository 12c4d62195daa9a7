#pragma once

#include <QStringList>

#include <simulator/CommandTable.h>
#include <simulator/signal-service/SignalServer.h>
#include <simulator/signal-service/SignalTable.h>

namespace Hmi::Simulator {

/** The commands of the signal service. */
class SignalCommands
{
public:
    /** All outlive each other's use: the commands are given no more after it is deleted. */
    SignalCommands(SignalTable& aTable, SignalServer& aServer, CommandTable& aCommands);

private:
    void set(const QStringList& aArguments);
    void get(const QStringList& aArguments);
    void list(const QStringList& aArguments);
    void drop(const QStringList& aArguments);
    void stall(const QStringList& aArguments);
    void garbage(const QStringList& aArguments);
    void late(const QStringList& aArguments);

    SignalTable& mTable;
    SignalServer& mServer;
};

} // namespace Hmi::Simulator
