#include <hmi/shared/services/OumSim.h>

#include <hmi/shared/services/SystemUpdateManager.h>

namespace Hmi::Shared {

OumSim::OumSim(QObject* aParent) : QObject(aParent)
{
    QObject* const manager = SystemUpdateManager::instance();
    // clang-format off
    connect(this, SIGNAL(onOumDownloadComplete()), manager, SLOT(onOumDownloadComplete()));
    connect(this, SIGNAL(onOumDownloadProgress( int )), manager, SLOT(onOumDownloadProgress( int )));
    connect(this, SIGNAL(onOumInstallComplete( QString )), manager, SLOT(onOumInstallComplete( QString )));
    connect(this, SIGNAL(onOumDownloadableUpdatesChanged( const QStringList& )),
            manager, SLOT(onOumDownloadableUpdatesChanged( const QStringList& )));
    connect(this, SIGNAL(onOumUpdateComplete( QString )), manager, SLOT(onOumUpdateComplete( QString )));
    connect(this, SIGNAL(onOumUpdateError( QString )), manager, SLOT(onOumUpdateError( QString )));
    connect(this, SIGNAL(onOumUpdateProgress( int )), manager, SLOT(onOumUpdateProgress( int )));
    connect(this, SIGNAL(onOumValidationComplete( QString )), manager, SLOT(onOumValidationComplete( QString )));
    // clang-format on
}

} // namespace Hmi::Shared
