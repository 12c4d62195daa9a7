#include "DbusService.h"
#include "DbusValues.h"
#include "Surroundings.h"

#include <QDeadlineTimer>
#include <QLoggingCategory>
#include <QVector>
#include <optional>

#include <hmi/shared/services/NotificationListModel.h>
#include <hmi/shared/services/SystemUpdateManager.h>

using HmiFuzz::DbusService;
using HmiFuzz::NotificationsById;
using HmiFuzz::require;
using namespace Hmi::Shared;
using State = SystemUpdateManager::UpdateState;

namespace {

/** What the list shows of a notification, as the messages that arrived say. */
struct Shown
{
    void locate(bool aHasLocation, double aLatitude, double aLongitude)
    {
        const bool isPosition =
            aLatitude >= -90 && aLatitude <= 90 && aLongitude >= -180 && aLongitude <= 180;
        isLocationValid = aHasLocation && isPosition;
        latitude = isPosition ? static_cast<float>(aLatitude) : 999.0F;
        longitude = isPosition ? static_cast<float>(aLongitude) : 999.0F;
    }
    bool isAsIn(const NotificationFramework::NotificationModel& aModel) const
    {
        return aModel.getNotificationId() == id && aModel.getPriority() == priority &&
               aModel.getNotificationType() == type && aModel.getTypeSpecificIdentifier() == typeId &&
               aModel.getIsLocationValid() == isLocationValid && aModel.getLatitude() == latitude &&
               aModel.getLongitude() == longitude;
    }

    int id;
    int priority;
    QString type;
    QString typeId;
    bool isLocationValid = false;
    float latitude = 999.0F;
    float longitude = 999.0F;
};

class Scene
{
public:
    explicit Scene(HmiFuzz::Input& aInput) : mValues(aInput)
    {
        mUpdates.resetUpdateProcess();
        answerList();
        mModel.emplace();
        QObject::connect(&*mModel, &NotificationListModel::showRequested, &*mModel,
                         [this](int aId) { mShowRequested.append(aId); });
        mService.awaitCall("GetCurrentNotifications");
        takeList();
        check();
    }

    void run()
    {
        for (int count = 0; count < 12 && !mValues.atEnd(); ++count) {
            const int choice = mValues.byte();
            mBent = (choice & 0x80) != 0;
            act(choice);
            check();
        }
    }

private:
    void act(int aChoice)
    {
        static constexpr void (Scene::*Deeds[])() = {
            &Scene::dismiss,         &Scene::move,          &Scene::requestShow,   &Scene::restart,
            &Scene::announceUpdates, &Scene::startDownload, &Scene::announceFiles, &Scene::tellPhase,
            &Scene::tellProgress,    &Scene::tellEnd};
        (this->*((aChoice & 15) < 10 ? Deeds[aChoice & 15] : &Scene::add))();
    }

    /** Whether it was as it should be; else it is to be ignored. */
    bool signal(const char* aService, const char* aName, const QVariantList& aArguments)
    {
        mService.signal(aService, aName, mBent ? mValues.bend(aArguments, false) : aArguments);
        return !mBent;
    }

    void add()
    {
        const int id = mValues.byte() & 7;
        const QString type = mValues.text();
        const QString typeId = mValues.text();
        const bool hasLocation = mValues.flag();
        const double latitude = mValues.take<double>();
        const double longitude = mValues.take<double>();
        if (!signal("NotificationManager", "NotificationAdded",
                    {id, type, typeId, hasLocation, latitude, longitude}))
            return;
        mService.settle(); // its priority was asked for
        forget(id);
        const auto isAbove = [=](const Shown& aShown) {
            return static_cast<uint>(aShown.id) > static_cast<uint>(id);
        };
        const auto place = std::find_if(mShown.begin(), mShown.end(), isAbove);
        const int priority = mListed.value(static_cast<uint>(id)).priority;
        Shown& shown = *mShown.insert(place, {id, priority, type, typeId});
        if (hasLocation)
            shown.locate(true, latitude, longitude);
    }

    void dismiss()
    {
        const int id = mValues.byte() & 7;
        if (signal("NotificationManager", "NotificationDismissed", {id}))
            forget(id);
    }

    void move()
    {
        const int id = mValues.byte() & 7;
        const bool hasLocation = mValues.flag();
        const double latitude = mValues.take<double>();
        const double longitude = mValues.take<double>();
        if (!signal("NotificationManager", "NotificationLocationUpdated",
                    {id, hasLocation, latitude, longitude}))
            return;
        for (Shown& shown : mShown)
            if (shown.id == id)
                shown.locate(hasLocation, latitude, longitude);
    }

    void requestShow()
    {
        const int id = mValues.take<int>();
        const bool arrives = signal("NotificationManager", "NotificationShowRequested", {id});
        require(mShowRequested == (arrives ? QVector<int>{id} : QVector<int>()), "a request is told, once");
        mShowRequested.clear();
    }

    void restart()
    {
        mService.leave();
        require(mModel->getCount() == 0, "without a service there are no notifications");
        require(!mModel->getServiceAvailable(), "a service that left is not there");
        answerList();
        mService.come();
        mService.awaitCall("GetCurrentNotifications");
        takeList();
    }

    void announceUpdates()
    {
        const QStringList urls = mValues.texts();
        const qulonglong size = mValues.take<qulonglong>();
        const QString version = mValues.text();
        const bool isAnswerGood = !mValues.flag();
        const QVariant info = QVariant::fromValue(UpdateManager::DownloadableUpdateInfo{size, version});
        mService.answer("GetDownloadableUpdateInfo", {isAnswerGood ? info : urls});
        const State former = mUpdates.getState();
        const bool arrives = signal("UpdateManager", "DownloadableUpdatesChanged", {urls});
        const bool isTaken =
            arrives && !urls.isEmpty() &&
            (former == State::UpdateStateNoneAvailable || former == State::UpdateStateUpdateComplete ||
             former == State::UpdateStateUpdateError);
        require(mUpdates.getState() == (isTaken ? State::UpdateStateUpdateDownloadable : former),
                "an update is offered when none is under way");
        if (!isTaken)
            return;
        require(mUpdates.getVersion() == (isAnswerGood ? version : QString()), "the version is told");
        require(mUpdates.getDownloadSize() == (isAnswerGood ? static_cast<int>(size) : 0),
                "the size is told");
    }

    void startDownload() { mUpdates.startDownload(); }

    void announceFiles()
    {
        const QStringList paths = mValues.texts();
        State expected = mUpdates.getState();
        const bool arrives = signal("UpdateManager", "AvailableUpdatesChanged", {paths});
        if (arrives && !paths.isEmpty())
            expected = State::UpdateStateUpdateAvailable;
        else if (arrives && expected == State::UpdateStateUpdateAvailable)
            expected = State::UpdateStateNoneAvailable;
        require(mUpdates.getState() == expected, "what can be installed is what the service has");
    }

    void tellPhase()
    {
        static constexpr State Phases[] = {State::UpdateStateVerifying, State::UpdateStateInstalling,
                                           State::UpdateStateValidating};
        const int phase = mValues.flag() ? mValues.byte() & 3 : mValues.take<int>();
        const State former = mUpdates.getState();
        const bool arrives = signal("UpdateManager", "InstallStateChanged", {phase, mValues.text()});
        const bool isKnown = arrives && phase >= 1 && phase <= 3;
        require(mUpdates.getState() == (isKnown ? Phases[phase - 1] : former), "an unknown phase is none");
    }

    void tellProgress()
    {
        const int percent = mValues.take<int>();
        const int former = mUpdates.getInstallPercent();
        const bool arrives = signal("UpdateManager", "InstallProgress", {percent, mValues.text(), percent});
        require(mUpdates.getInstallPercent() == (arrives ? percent : former), "progress is what is told");
    }

    void tellEnd()
    {
        const bool success = mValues.flag();
        const QString status = mValues.text();
        const State former = mUpdates.getState();
        const bool arrives = signal("UpdateManager", "InstallFinished", {success, status, status});
        const State end = success ? State::UpdateStateUpdateComplete : State::UpdateStateUpdateError;
        require(mUpdates.getState() == (arrives ? end : former), "an end is an end");
    }

    /** Qt takes answers that hold more. */
    void answerList()
    {
        mListed.clear();
        const QVariantList list{QVariant::fromValue(mValues.notifications(mListed))};
        mService.answer("GetCurrentNotifications", mBent ? mValues.bend(list, true) : list);
        if (mBent)
            mListed.clear();
    }

    void takeList()
    {
        // On a machine that is busy for seconds the list is given up, and asked for again.
        const QDeadlineTimer deadline(25000);
        while (!mBent && !mModel->getServiceAvailable() && !deadline.hasExpired())
            mService.settle();
        mShown.clear();
        for (auto entry = mListed.cbegin(); entry != mListed.cend(); ++entry)
            mShown.append({static_cast<int>(entry.key()), entry->priority, entry->notificationType,
                           entry->typeSpecificId});
    }

    void forget(int aId)
    {
        const auto isIt = [=](const Shown& aShown) { return aShown.id == aId; };
        mShown.erase(std::remove_if(mShown.begin(), mShown.end(), isIt), mShown.end());
    }

    void check()
    {
        require(mModel->getCount() == mShown.size(), "what the service has is shown");
        for (int row = 0; row < mShown.size(); ++row)
            require(mShown.at(row).isAsIn(*mModel->at(row)),
                    "each is shown as the service tells it, in the order of ids");
        require(mWarnings.takeCount() <= 1, "a fault is reported once");
    }

    HmiFuzz::Warnings mWarnings;
    DbusService& mService = DbusService::instance();
    SystemUpdateManager& mUpdates = *SystemUpdateManager::instance();
    HmiFuzz::Values mValues;
    std::optional<NotificationListModel> mModel;
    NotificationsById mListed; ///< nothing where the answer is bent
    QVector<Shown> mShown;
    QVector<int> mShowRequested;
    bool mBent = false;
};

bool prepare()
{
    HmiFuzz::application();
    NotificationMgr::registerTypes();
    UpdateManager::registerTypes();
    QLoggingCategory::setFilterRules(QStringLiteral("hmi.shared.info=false"));
    DbusService& service = DbusService::instance();
    SystemUpdateManager::instance()->init();
    // Comes after all that following the signals takes.
    SystemUpdateManager::instance()->checkForUpdates();
    service.awaitCall("CheckForUpdates");
    return true;
}

} // namespace

// Choices are not used: each deed is followed by its arguments. The first is the list that is there.
int LLVMFuzzerTestOneInput(const std::uint8_t* aData, std::size_t aSize)
{
    static const bool isPrepared = prepare();
    require(isPrepared, "there is a bus");
    HmiFuzz::Input input(aData, aSize);
    const HmiFuzz::Quick quick;
    Scene(input).run();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    return 0;
}
