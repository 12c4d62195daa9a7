#include <platform/update-manager/UpdateManagerClient.h>

namespace UpdateManager {

/** In milliseconds: five seconds, less the 5 % by which the timer of a call may be late. */
static constexpr int CallTimeout = 4750;

UpdateManagerClient::UpdateManagerClient(const QDBusConnection& aConnection, QObject* aParent) :
    ComKorvexUpdateManagerInterface(QStringLiteral("com.korvex.UpdateManager"),
                                    QStringLiteral("/com/korvex/UpdateManager"), aConnection, aParent)
{
    registerTypes();
    setTimeout(CallTimeout);
    connect(this, &ComKorvexUpdateManagerInterface::InstallProgress, this,
            [this](int aState, const QString& aUpdatePath, int aPercent) {
                emit InstallProgress(static_cast<UpdateInstallState>(aState), aUpdatePath, aPercent);
            });
    connect(this, &ComKorvexUpdateManagerInterface::InstallStateChanged, this,
            [this](int aState, const QString& aUpdatePath) {
                emit InstallStateChanged(static_cast<UpdateInstallState>(aState), aUpdatePath);
            });
}

} // namespace UpdateManager
