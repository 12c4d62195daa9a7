#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

namespace Hmi::Shared {

/**
 * Stands in for the update service within the process, for development: what is emitted here drives the
 * SystemUpdateManager. Its signals are those of an older service, so Qt warns of each that the manager does
 * not take any more; onOumDownloadableUpdatesChanged() does. GUI thread only.
 */
class Q_DECL_EXPORT OumSim : public QObject
{
    Q_OBJECT

public:
    explicit OumSim(QObject* aParent = nullptr);

signals:
    void onOumDownloadComplete();
    void onOumDownloadProgress(int a_percent);
    void onOumInstallComplete(QString a_status);
    void onOumDownloadableUpdatesChanged(const QStringList& a_updateUrls);
    void onOumUpdateComplete(QString);
    void onOumUpdateError(QString);
    void onOumUpdateProgress(int);
    void onOumValidationComplete(QString);
};

} // namespace Hmi::Shared
