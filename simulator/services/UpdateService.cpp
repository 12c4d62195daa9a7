#include <simulator/services/UpdateService.h>

#include <UpdateManagerAdaptor.h>
#include <algorithm>

namespace Hmi::Simulator {

using namespace UpdateManager;

static const QString sBusy = QStringLiteral("com.korvex.UpdateManager.Error.Busy");
static const QString sNotRunning = QStringLiteral("com.korvex.UpdateManager.Error.NotRunning");

UpdateService::UpdateService(const QDBusConnection& aConnection, ServiceFaults& aFaults) :
    BusService(QStringLiteral("com.korvex.UpdateManager"), aConnection, aFaults)
{
    registerTypes();
    new UpdateManagerAdaptor(this);
    connect(&mDownload, &Progress::progressed, this, [this](int aPercent) {
        emitSignal(QStringLiteral("DownloadProgress"), {mUrl, aPercent});
    });
    connect(&mDownload, &Progress::finished, this, &UpdateService::onDownloaded);
    connect(&mInstallation, &Progress::progressed, this, [this](int aPercent) {
        if (mPhase == UpdateInstallStateInstalling)
            emitSignal(QStringLiteral("InstallProgress"), {static_cast<int>(mPhase), mPath, aPercent});
    });
    connect(&mInstallation, &Progress::finished, this, &UpdateService::onPhaseFinished);
}

std::vector<UpdateService::Offer>::iterator UpdateService::findOffer(const QString& aUrl)
{
    return std::find_if(mOffers.begin(), mOffers.end(),
                        [&](const Offer& aOffer) { return aOffer.url == aUrl; });
}

void UpdateService::announceOffers()
{
    QStringList urls;
    for (const Offer& offer : mOffers)
        urls += offer.url;
    emitSignal(QStringLiteral("DownloadableUpdatesChanged"), {urls});
}

void UpdateService::CheckForUpdates()
{
    if (!mOffers.empty())
        announceOffers();
}

void UpdateService::DownloadUpdate(const QString& aUrl)
{
    const auto offer = findOffer(aUrl);
    if (offer == mOffers.end())
        return refuseArguments(QStringLiteral("there is no update '%1' to download").arg(aUrl));
    if (mUrl == aUrl && mDownload.isPaused())
        return mDownload.resume();
    if (mDownload.isUnderWay())
        return refuse(sBusy, QStringLiteral("the download of '%1' is under way").arg(mUrl));
    mUrl = aUrl;
    mDownload.start(static_cast<double>(offer->info.size), mBandwidth);
}

/** What is refused is said here. */
bool UpdateService::isDownload(const QString& aUrl, bool aPaused)
{
    if (findOffer(aUrl) == mOffers.end())
        refuseArguments(QStringLiteral("there is no update '%1' to download").arg(aUrl));
    else if (!mDownload.isUnderWay() || mUrl != aUrl || mDownload.isPaused() != aPaused)
        refuse(sNotRunning, (aPaused ? QStringLiteral("no download of '%1' is paused")
                                     : QStringLiteral("no download of '%1' is running"))
                                .arg(aUrl));
    else
        return true;
    return false;
}

void UpdateService::PauseDownload(const QString& aUrl)
{
    if (isDownload(aUrl, false))
        mDownload.pause();
}

void UpdateService::ResumeDownload(const QString& aUrl)
{
    if (isDownload(aUrl, true))
        mDownload.resume();
}

void UpdateService::onDownloaded()
{
    mOffers.erase(findOffer(mUrl));
    const QString path = QStringLiteral("/var/updates/%1.update").arg(++mDownloaded);
    mAvailable += path;
    emitSignal(QStringLiteral("DownloadComplete"), {mUrl, path});
    emitSignal(QStringLiteral("AvailableUpdatesChanged"), {mAvailable});
}

DownloadableUpdateInfo UpdateService::GetDownloadableUpdateInfo(const QString& aUrl)
{
    const auto offer = findOffer(aUrl);
    if (offer != mOffers.end())
        return offer->info;
    refuseArguments(QStringLiteral("there is no update '%1' to download").arg(aUrl));
    return {};
}

void UpdateService::InstallUpdate(const QString& aPath)
{
    if (!mAvailable.contains(aPath))
        return refuseArguments(QStringLiteral("there is no update '%1' to install").arg(aPath));
    if (mInstallation.isUnderWay())
        return refuse(sBusy, QStringLiteral("the installation of '%1' is under way").arg(mPath));
    mPath = aPath;
    enterPhase(UpdateInstallStateVerifying);
}

void UpdateService::enterPhase(UpdateInstallState aPhase)
{
    static constexpr double MillisecondsPerSecond = 1000;
    mPhase = aPhase;
    emitSignal(QStringLiteral("InstallStateChanged"), {static_cast<int>(mPhase), mPath});
    mInstallation.start(mPace, MillisecondsPerSecond);
}

void UpdateService::onPhaseFinished()
{
    if (mFailure)
        finishInstallation(false, QString(*mFailure));
    else if (mPhase < UpdateInstallStateValidating)
        enterPhase(static_cast<UpdateInstallState>(mPhase + 1));
    else
        finishInstallation(true, QStringLiteral("installed"));
}

void UpdateService::finishInstallation(bool aSuccess, const QString& aStatus)
{
    mInstallation.stop();
    mFailure.reset();
    mPhase = UpdateInstallStateNone;
    emitSignal(QStringLiteral("InstallFinished"), {aSuccess, aStatus, mPath});
    if (!aSuccess)
        return;
    mAvailable.removeAll(mPath);
    emitSignal(QStringLiteral("AvailableUpdatesChanged"), {mAvailable});
}

void UpdateService::offer(const Offer& aOffer)
{
    const auto known = findOffer(aOffer.url);
    if (known == mOffers.end())
        mOffers.push_back(aOffer);
    else
        *known = aOffer;
    announceOffers();
}

bool UpdateService::withdraw(const QString& aUrl)
{
    const auto known = findOffer(aUrl);
    if (known == mOffers.end())
        return false;
    if (mUrl == aUrl)
        mDownload.stop();
    mOffers.erase(known);
    announceOffers();
    return true;
}

void UpdateService::setBandwidth(double aBandwidth)
{
    mBandwidth = aBandwidth;
    mDownload.setRate(aBandwidth);
}

void UpdateService::fail(const QString& aStatus)
{
    mFailure = aStatus;
    if (mInstallation.isUnderWay())
        finishInstallation(false, aStatus);
}

} // namespace Hmi::Simulator
