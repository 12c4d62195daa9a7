#pragma once

#include <QString>
#include <memory>
#include <string>
#include <vector>

#include "Clients.h"
#include "PlatformService.h"

/**
 * One service and what its clients may be in the middle of. Of the thread that harms it; "states" are their
 * names.
 */
class ServiceCase
{
public:
    ServiceCase(const std::string& aName, const std::vector<std::string>& aStates, Clients& aClients,
                const QStringList& aArguments, const QByteArray& aReady);
    virtual ~ServiceCase() = default;
    Q_DISABLE_COPY(ServiceCase)

    /** False when the clients do not get there. */
    virtual bool bring(int aState) = 0;
    /** Tells the clients something with this number, once. */
    virtual void announce(int aNumber) = 0;
    /** On the GUI thread. */
    virtual bool isHeard(int aNumber) const = 0;

    const std::string name;
    const std::vector<std::string> states;
    PlatformService service;

protected:
    Clients& mClients;
};

/** Update, notifications, bug report, vehicle signals; nothing of them runs yet. */
std::vector<std::unique_ptr<ServiceCase>> makeServiceCases(Clients& aClients, const QString& aFolder);
