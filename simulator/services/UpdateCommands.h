#pragma once

#include <QStringList>

#include <simulator/CommandTable.h>

namespace Hmi::Simulator {

class UpdateService;

/** The commands of the update service. */
class UpdateCommands
{
public:
    /** All outlive each other's use. */
    UpdateCommands(UpdateService& aService, CommandTable& aCommands);

private:
    void offer(const QStringList& aArguments);
    void withdraw(const QStringList& aArguments);
    void setBandwidth(const QStringList& aArguments);
    void setPace(const QStringList& aArguments);
    void fail(const QStringList& aArguments);
    void announceInstallation(const QStringList& aArguments);
    void announceReboot(const QStringList& aArguments);
    void showState(const QStringList& aArguments);

    UpdateService& mService;
};

} // namespace Hmi::Simulator
