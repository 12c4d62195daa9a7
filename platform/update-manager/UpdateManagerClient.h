#pragma once

#include <QDBusConnection>

#include <UpdateManagerInterface.h>

namespace UpdateManager {

/**
 * The update service on the bus: its methods are calls that return at once with a pending reply, its signals
 * arrive while its name has an owner, and from nobody but that owner. The service may come and go. Calls give
 * up after five seconds. Main thread only.
 */
class Q_DECL_EXPORT UpdateManagerClient : public ComKorvexUpdateManagerInterface
{
    Q_OBJECT

public:
    explicit UpdateManagerClient(const QDBusConnection& aConnection, QObject* aParent = nullptr);

signals:
    // With the phase as what it is, in place of the number that travels.
    void InstallProgress(UpdateManager::UpdateInstallState aState, const QString& aUpdatePath, int aPercent);
    void InstallStateChanged(UpdateManager::UpdateInstallState aState, const QString& aUpdatePath);
};

} // namespace UpdateManager
