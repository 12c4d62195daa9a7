#pragma once

#include <QStringList>
#include <optional>
#include <vector>

#include <platform/update-manager/UpdateTypes.h>
#include <simulator/services/BusService.h>
#include <simulator/services/Progress.h>

namespace Hmi::Simulator {

/**
 * Updates from their offer to their installation, in real time. One download and one installation at a time;
 * a second one, and what names no update in the right condition, is refused with a D-Bus error.
 */
class UpdateService : public BusService
{
    Q_OBJECT

public:
    struct Offer
    {
        QString url;
        UpdateManager::DownloadableUpdateInfo info;
    };

    UpdateService(const QDBusConnection& aConnection, ServiceFaults& aFaults);

    // The interface; the updates are announced again by a check, for who came after them.
    void CheckForUpdates();
    void DownloadUpdate(const QString& aUrl);
    void PauseDownload(const QString& aUrl);
    void ResumeDownload(const QString& aUrl);
    void InstallUpdate(const QString& aPath);
    UpdateManager::DownloadableUpdateInfo GetDownloadableUpdateInfo(const QString& aUrl);

    /** In the place of an offer with the same URL. */
    void offer(const Offer& aOffer);
    /** Its download ends without a word. False: there is none. */
    bool withdraw(const QString& aUrl);
    /** Bytes per second, above 0. */
    void setBandwidth(double aBandwidth);
    /** Milliseconds of each phase of the installations that begin later. */
    void setPace(int aPace) { mPace = aPace; }
    /** The installation that runs, or else the next one, fails; the update stays available. */
    void fail(const QString& aStatus);

    const std::vector<Offer>& getOffers() const { return mOffers; }
    const QStringList& getAvailable() const { return mAvailable; }
    const Progress& getDownload() const { return mDownload; }
    QString getDownloadUrl() const { return mUrl; }
    const Progress& getInstallation() const { return mInstallation; }
    QString getInstallationPath() const { return mPath; }
    UpdateManager::UpdateInstallState getPhase() const { return mPhase; }

private:
    std::vector<Offer>::iterator findOffer(const QString& aUrl);
    bool isDownload(const QString& aUrl, bool aPaused);
    void announceOffers();
    void onDownloaded();
    void enterPhase(UpdateManager::UpdateInstallState aPhase);
    void onPhaseFinished();
    void finishInstallation(bool aSuccess, const QString& aStatus);

    std::vector<Offer> mOffers;
    QStringList mAvailable; ///< paths
    Progress mDownload;
    QString mUrl; ///< of the download
    Progress mInstallation;
    QString mPath; ///< of the installation
    UpdateManager::UpdateInstallState mPhase = UpdateManager::UpdateInstallStateNone;
    std::optional<QString> mFailure; ///< of the next installation
    double mBandwidth = 1e6;
    int mPace = 3000;
    int mDownloaded = 0; ///< number of updates
};

} // namespace Hmi::Simulator
