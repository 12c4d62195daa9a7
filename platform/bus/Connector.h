#pragma once

#include <QDBusConnection>
#include <functional>

namespace Bus {

/** Gives the connection; called on the thread of the bus work, so it may connect. */
using Connector = std::function<QDBusConnection()>;

/** One that exists already. */
inline Connector connectorOf(const QDBusConnection& aConnection)
{
    return [aConnection] { return aConnection; };
}

} // namespace Bus
