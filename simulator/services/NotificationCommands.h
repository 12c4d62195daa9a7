#pragma once

#include <QStringList>

#include <simulator/CommandTable.h>

namespace Hmi::Simulator {

class NotificationService;

/** The commands of the notification service. */
class NotificationCommands
{
public:
    /** All outlive each other's use. */
    NotificationCommands(NotificationService& aService, CommandTable& aCommands);

private:
    void notify(const QStringList& aArguments);
    void dismiss(const QStringList& aArguments);
    void show(const QStringList& aArguments);
    void move(const QStringList& aArguments);
    void setPriority(const QStringList& aArguments);
    void list(const QStringList& aArguments);

    NotificationService& mService;
};

} // namespace Hmi::Simulator
