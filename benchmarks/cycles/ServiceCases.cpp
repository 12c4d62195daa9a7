#include "ServiceCases.h"

#include <map>

#include "GuiThread.h"
#include <hmi/shared/signal-service/DataBuffer.h>

using Hmi::Shared::NotificationListModel;
using Manager = Hmi::Shared::SystemUpdateManager;

static constexpr int ReachTime = 5000;                      ///< milliseconds
static const QByteArray LateAnswers = "service late 60000"; ///< each call waits

ServiceCase::ServiceCase(const std::string& aName, const std::vector<std::string>& aStates, Clients& aClients,
                         const QStringList& aArguments, const QByteArray& aReady) :
    name(aName), states(aStates), service(aArguments, aReady), mClients(aClients)
{}

static QStringList busArguments(const char* aService, const QString& aFolder)
{
    return {QStringLiteral("--no-signal-service"), QStringLiteral("--services"),
            QString::fromLatin1(aService), QStringLiteral("--reports"), aFolder};
}

namespace {

class UpdateCase : public ServiceCase
{
public:
    UpdateCase(Clients& aClients, const QString& aFolder) :
        ServiceCase("update",
                    {"idle", "asking", "downloadable", "downloading", "paused", "available", "verifying",
                     "installing", "validating", "complete", "failed"},
                    aClients, busArguments("update", aFolder), "serving com.korvex.UpdateManager")
    {}

    bool bring(int aState) override;
    void announce(int aNumber) override
    {
        service.command("service honest");
        service.command("update signal DownloadProgress u " + QByteArray::number(aNumber));
    }
    bool isHeard(int aNumber) const override { return mClients.announced == aNumber; }

private:
    enum State {
        Idle,
        Asking,
        Downloadable,
        Downloading,
        Paused,
        Available,
        Verifying,
        Installing,
        Validating,
        Complete,
        Failed
    };

    bool install(State aState);
    bool reaches(Manager::UpdateState aState)
    {
        return waitOnGui(ReachTime, [=] { return mClients.update.getState() == aState; });
    }
};

bool UpdateCase::bring(int aState)
{
    Manager& manager = mClients.update;
    onGui([&] { manager.resetUpdateProcess(); });
    if (aState == Idle)
        return true;
    if (aState == Asking) {
        service.command(LateAnswers);
        service.command("update offer u 1000000 1", "call GetDownloadableUpdateInfo \"u\"");
        return true;
    }
    service.command(aState < Available ? "update bandwidth 1000" : "update bandwidth 20000000000");
    service.command("update offer u 1000000 1");
    if (!reaches(Manager::UpdateStateUpdateDownloadable))
        return false;
    if (aState > Downloadable)
        onGui([&] { manager.startDownload(); });
    if (aState == Paused)
        onGui([&] { manager.pauseDownload(); });
    if (aState < Available)
        return true;
    return reaches(Manager::UpdateStateUpdateAvailable) && (aState == Available || install(State(aState)));
}

bool UpdateCase::install(State aState)
{
    static const std::map<State, Manager::UpdateState> sStates = {
        {Verifying, Manager::UpdateStateVerifying},
        {Installing, Manager::UpdateStateInstalling},
        {Validating, Manager::UpdateStateValidating},
        {Complete, Manager::UpdateStateUpdateComplete},
        {Failed, Manager::UpdateStateUpdateError}};
    service.command(aState < Complete ? "update pace 200" : "update pace 20");
    if (aState == Failed)
        service.command("update fail");
    onGui([this] { mClients.update.startInstallation(); });
    // The HMI calls it installing as soon as it asked for that.
    return (aState != Installing || reaches(Manager::UpdateStateVerifying)) && reaches(sStates.at(aState));
}

class NotificationCase : public ServiceCase
{
public:
    NotificationCase(Clients& aClients, const QString& aFolder) :
        ServiceCase("notifications", {"idle", "asking for the list", "dismissing", "flooded"}, aClients,
                    busArguments("notifications", aFolder), "serving com.korvex.NotificationManager")
    {}

    bool bring(int aState) override;
    void announce(int aNumber) override
    {
        service.command("service honest");
        service.command("notify add fuel n" + QByteArray::number(aNumber));
    }
    bool isHeard(int aNumber) const override
    {
        const QString id = QStringLiteral("n%1").arg(aNumber);
        return mClients.added == id && isLast(id, mClients.notifications) &&
               (!mClients.laterNotifications || isLast(id, *mClients.laterNotifications));
    }

private:
    enum State { Idle, Asking, Dismissing, Flooded };

    static bool isLast(const QString& aId, const NotificationListModel& aModel)
    {
        const int count = aModel.getCount();
        return count > 0 && aModel.at(count - 1)->getTypeSpecificIdentifier() == aId;
    }
};

bool NotificationCase::bring(int aState)
{
    service.command("notify add fuel low");
    if (aState == Asking || aState == Dismissing)
        service.command(LateAnswers, LateAnswers);
    onGui([&] {
        mClients.laterNotifications.reset();
        if (aState == Asking)
            mClients.laterNotifications = std::make_unique<NotificationListModel>();
        if (aState == Dismissing)
            mClients.notifications.dismiss(1);
    });
    if (aState == Flooded)
        service.command(QByteArray("notify add fuel flood\n").repeated(100));
    return true;
}

class BugReportCase : public ServiceCase
{
public:
    BugReportCase(Clients& aClients, const QString& aFolder) :
        ServiceCase("bug report", {"idle", "asking", "creating a report"}, aClients,
                    busArguments("bug-report", aFolder), "serving com.korvex.BugReport")
    {}

    bool bring(int aState) override
    {
        if (aState != 0)
            service.command(LateAnswers, LateAnswers);
        onGui([&] {
            if (aState == 1)
                mClients.bugs.GetExportEnabled();
            if (aState == 2)
                mClients.bugs.CreateBugReport();
        });
        return true;
    }
    void announce(int) override
    {
        service.command("service honest");
        mToldBefore = onGui([this] {
            mClients.bugs.SetEnabled(true);
            return mClients.hmi.told;
        });
    }
    bool isHeard(int) const override { return mClients.hmi.told > mToldBefore; }

private:
    int mToldBefore = 0;
};

class SignalCase : public ServiceCase
{
public:
    SignalCase(Clients& aClients, const QString& aSocket) :
        ServiceCase("signals", {"subscribed", "reading", "writing", "half a message", "garbage", "flooded"},
                    aClients, {QStringLiteral("--signal-service"), aSocket}, "listening " + aSocket.toUtf8())
    {}

    bool bring(int aState) override;
    void announce(int aNumber) override
    {
        service.command("late 0");
        for (int i = 0; i < mClients.readers.size(); ++i)
            service.command("set Vehicle.Signal" + QByteArray::number(i) + ' ' + QByteArray::number(aNumber));
    }
    bool isHeard(int aNumber) const override { return mClients.haveValue(aNumber); }

private:
    enum State { Subscribed, Reading, Writing, HalfMessage, Garbage, Flooded };
};

bool SignalCase::bring(int aState)
{
    if (aState == Reading || aState == Writing)
        service.command("late 500", "late 500");
    if (aState == Reading)
        onGui([this] { mClients.readers.first()->RequestUpdate(); });
    if (aState == Writing)
        onGui([this] { mClients.writer.PutValue(SignalService::MemcpyToDataBuffer(1)); });
    if (aState == HalfMessage)
        service.command("stall", "stalled 1");
    if (aState == Garbage)
        service.command("garbage", "garbage 1");
    QByteArray flood;
    for (int i = 0; aState == Flooded && i < 1000; ++i)
        flood += "set Vehicle.Signal0 " + QByteArray::number(i) + '\n';
    service.command(flood);
    return true;
}

} // namespace

std::vector<std::unique_ptr<ServiceCase>> makeServiceCases(Clients& aClients, const QString& aFolder)
{
    std::vector<std::unique_ptr<ServiceCase>> cases;
    cases.push_back(std::make_unique<UpdateCase>(aClients, aFolder));
    cases.push_back(std::make_unique<NotificationCase>(aClients, aFolder));
    cases.push_back(std::make_unique<BugReportCase>(aClients, aFolder));
    cases.push_back(std::make_unique<SignalCase>(aClients, aClients.transport.GetSocketPath()));
    return cases;
}
