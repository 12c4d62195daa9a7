#pragma once

#include <QDBusArgument>
#include <QMetaType>
#include <QString>

namespace UpdateManager {

/** What the update service is doing to install an update; it travels as its number. */
enum UpdateInstallState : int {
    UpdateInstallStateNone,
    UpdateInstallStateVerifying,
    UpdateInstallStateInstalling,
    UpdateInstallStateValidating
};

/** What the update service knows of an update before it is downloaded. */
struct DownloadableUpdateInfo
{
    qulonglong size = 0; ///< bytes
    QString version;     ///< as people read it
};

Q_DECL_EXPORT QDBusArgument& operator<<(QDBusArgument& aArgument, const DownloadableUpdateInfo& aInfo);
Q_DECL_EXPORT const QDBusArgument& operator>>(const QDBusArgument& aArgument, DownloadableUpdateInfo& aInfo);

/** Registers the meta types; the client does. Later calls do nothing. */
Q_DECL_EXPORT void registerTypes();

} // namespace UpdateManager

Q_DECLARE_METATYPE(UpdateManager::UpdateInstallState)
Q_DECLARE_METATYPE(UpdateManager::DownloadableUpdateInfo)
