#include "DbusService.h"
#include "Surroundings.h"

#include <QCoreApplication>
#include <QDBusArgument>
#include <QDBusMetaType>
#include <QLoggingCategory>
#include <QVector>
#include <cmath>
#include <cstring>

#include <hmi/shared/services/NotificationListModel.h>
#include <hmi/shared/services/NotificationManagerWrapperQml.h>
#include <hmi/shared/services/SystemUpdateManager.h>

using HmiFuzz::DbusService;
using HmiFuzz::Input;
using HmiFuzz::require;
using NotificationMgr::NotificationInstance;
using NotificationMgr::NotificationList;
using UpdateManager::DownloadableUpdateInfo;
using namespace Hmi::Shared;

namespace {

/** Takes values from the input; when it is used up, zeros and empty texts. */
class Values
{
public:
    explicit Values(Input& aInput) : mInput(aInput) {}

    bool atEnd() const { return mInput.getRestSize() == 0; }
    template <class T>
    T take()
    {
        T value{};
        const std::size_t size = std::min(sizeof value, mInput.getRestSize());
        std::memcpy(&value, mInput.getRest(), size);
        mInput.skip(size);
        return value;
    }
    int byte() { return take<quint8>(); }
    /** As the bus carries it: Unicode without NUL. */
    QString text()
    {
        const int size = static_cast<int>(std::min<std::size_t>(take<quint8>() & 15U, mInput.getRestSize()));
        const QByteArray bytes(mInput.getRest(), size);
        mInput.skip(static_cast<std::size_t>(size));
        return QString::fromUtf8(bytes.constData());
    }
    QStringList texts()
    {
        QStringList texts;
        for (int count = byte() & 3; count > 0; --count)
            texts.append(text());
        return texts;
    }
    NotificationInstance instance()
    {
        NotificationInstance instance;
        instance.priority = take<int>();
        instance.notificationType = text();
        instance.typeSpecificId = text();
        return instance;
    }

private:
    Input& mInput;
};

/** A list as it travels, in which an id may be twice. */
struct List
{
    explicit List(Values& aValues)
    {
        argument.beginMap(QMetaType::UInt, qMetaTypeId<NotificationInstance>());
        for (int count = aValues.byte() & 7; count > 0; --count) {
            const uint id = aValues.take<quint8>() & 1 ? aValues.take<uint>() : aValues.take<quint8>();
            const NotificationInstance instance = aValues.instance();
            argument.beginMapEntry();
            argument << id << instance;
            argument.endMapEntry();
            byId.insert(id, instance);
        }
        argument.endMap();
    }

    QDBusArgument argument;
    QMap<uint, NotificationInstance> byId;
};

/** What the model shows, as the messages that arrived say. */
struct Shown
{
    int id;
    int priority;
    QString type;
    QString typeId;
};

class Scene
{
public:
    explicit Scene(Input& aInput) : mValues(aInput)
    {
        SystemUpdateManager::instance()->resetUpdateProcess();
        answerList();
        mModel = std::make_unique<NotificationListModel>(QDBusConnection::systemBus());
        QObject::connect(mModel.get(), &NotificationListModel::showRequested, mModel.get(),
                         [this](int aId) { mShowRequested.append(aId); });
        mService.settle();
        takeList();
        check();
    }

    void run()
    {
        for (int count = 0; count < 12 && !mValues.atEnd(); ++count) {
            act(mValues.byte());
            check();
        }
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

private:
    void act(int aChoice)
    {
        mBent = (aChoice & 0x80) != 0;
        switch (aChoice & 15) {
        case 0:
        case 1:
            return add();
        case 2:
            return dismiss();
        case 3:
            return move();
        case 4:
            return requestShow();
        case 5:
            return restart();
        case 6:
            return callList();
        case 7:
            return callOthers();
        case 8:
            return announceUpdates();
        case 9:
            return announceFiles();
        case 10:
            return progressDownload();
        case 11:
            return progressInstallation();
        case 12:
            return finishInstallation();
        default:
            return press(aChoice & 3);
        }
    }

    /** Bent: with an argument too few, of another type, or too many, and then to be ignored; but Qt takes
     * answers with arguments too many. */
    QVariantList bent(QVariantList aArguments, bool aIsAnswer = true)
    {
        if (!mBent)
            return aArguments;
        const int choice = mValues.byte() | (aIsAnswer ? 1 : 0);
        const int at = (choice >> 2) % std::max(aArguments.size(), 1);
        const QVariant other = QVariant::fromValue(mValues.take<quint16>());
        if ((choice & 3) == 0 || aArguments.isEmpty())
            aArguments.append(other);
        else if ((choice & 3) == 1)
            aArguments.removeLast();
        else
            aArguments[at] = other;
        return aArguments;
    }

    /** Whether it was as it should be. */
    bool signal(const char* aName, const QVariantList& aArguments,
                DbusService::Name aFrom = DbusService::Notifications)
    {
        mService.signal(aFrom, QLatin1String(aName), bent(aArguments, false));
        mService.settle();
        mService.settle(); // what the signal set off
        return !mBent;
    }

    void add()
    {
        const int id = mValues.byte() & 7;
        const QString type = mValues.text();
        const QString typeId = mValues.text();
        const bool hasLocation = (mValues.byte() & 1) != 0;
        const double latitude = mValues.take<double>();
        if (!signal("NotificationAdded", {id, type, typeId, hasLocation, latitude, mValues.take<double>()}))
            return;
        forget(id);
        mShown.append({id, 0, type, typeId});
    }

    void dismiss()
    {
        const int id = mValues.byte() & 7;
        if (signal("NotificationDismissed", {id}))
            forget(id);
    }

    void move()
    {
        const int id = mValues.byte() & 7;
        const bool hasLocation = (mValues.byte() & 1) != 0;
        const double latitude = mValues.take<double>();
        signal("NotificationLocationUpdated", {id, hasLocation, latitude, mValues.take<double>()});
    }

    void requestShow()
    {
        const int id = mValues.take<int>();
        const bool arrives = signal("NotificationShowRequested", {id});
        require(mShowRequested == (arrives ? QVector<int>{id} : QVector<int>()), "a request is told, once");
        mShowRequested.clear();
    }

    void restart()
    {
        mService.leave();
        mService.settle();
        require(mModel->getCount() == 0, "without a service there are no notifications");
        answerList();
        mService.come();
        mService.settle();
        mService.settle();
        takeList();
    }

    void callList()
    {
        const List list(mValues);
        mService.answer("GetCurrentNotifications", bent({QVariant::fromValue(list.argument)}));
        const NotificationList told = mNotifications.NotificationManagerWrapper::GetCurrentNotifications();
        const bool arrives = !mBent;
        require(told.size() == (arrives ? list.byId.size() : 0), "a wrong answer is an empty list");
        for (auto entry = told.cbegin(); entry != told.cend(); ++entry) {
            const NotificationInstance& sent = list.byId[entry.key()];
            require(entry->priority == sent.priority && entry->notificationType == sent.notificationType &&
                        entry->typeSpecificId == sent.typeSpecificId,
                    "the list is the service's");
        }
        require(mNotifications.GetCurrentNotifications().size() == told.size(), "QML sees the same list");
    }

    void callOthers()
    {
        const int id = mValues.take<int>();
        const bool done = (mValues.byte() & 1) != 0;
        mService.answer("AddNotification", bent({id}));
        const bool arrives = !mBent;
        require(mNotifications.AddNotification(QString(), QString(), false, 0, 0) == (arrives ? id : 0),
                "a wrong answer is no id");
        mService.answer("DismissNotification", bent({done}));
        require(mNotifications.DismissNotification(id) == (arrives && done), "a wrong answer is no success");
    }

    void announceUpdates()
    {
        const QStringList urls = mValues.texts();
        const DownloadableUpdateInfo info{mValues.take<qulonglong>(), mValues.text()};
        const bool isAnswerBent = (mValues.byte() & 1) != 0;
        mService.answer("GetDownloadableUpdateInfo",
                        isAnswerBent ? QVariantList{urls} : QVariantList{QVariant::fromValue(info)});
        const auto former = mUpdates.getState();
        const bool arrives = signal("DownloadableUpdatesChanged", {urls}, DbusService::Updates);
        const bool taken = arrives && !urls.isEmpty() &&
                           (former == SystemUpdateManager::UpdateStateNoneAvailable ||
                            former == SystemUpdateManager::UpdateStateUpdateComplete ||
                            former == SystemUpdateManager::UpdateStateUpdateError);
        require(mUpdates.getState() == (taken ? SystemUpdateManager::UpdateStateUpdateDownloadable : former),
                "an update is offered when none is under way");
        if (!taken)
            return;
        require(mUpdates.getVersion() == (isAnswerBent ? QString() : info.version), "the version is told");
        require(mUpdates.getDownloadSize() == (isAnswerBent ? 0 : static_cast<int>(info.size)),
                "the size is told");
    }

    void announceFiles()
    {
        const QStringList paths = mValues.texts();
        const auto former = mUpdates.getState();
        const bool arrives = signal("AvailableUpdatesChanged", {paths}, DbusService::Updates);
        const auto available = SystemUpdateManager::UpdateStateUpdateAvailable;
        auto expected = former;
        if (arrives && !paths.isEmpty())
            expected = available;
        else if (arrives && former == available)
            expected = SystemUpdateManager::UpdateStateNoneAvailable;
        require(mUpdates.getState() == expected, "what can be installed is what the service has");
    }

    void progressDownload()
    {
        const int percent = mValues.take<int>();
        const int former = mUpdates.getPercent();
        const bool arrives = signal("DownloadProgress", {mValues.text(), percent}, DbusService::Updates);
        require(mUpdates.getPercent() == (arrives ? percent : former), "progress is what the service tells");
    }

    void progressInstallation()
    {
        const int state = mValues.take<quint8>() & 7 ? mValues.byte() & 7 : mValues.take<int>();
        const auto former = mUpdates.getState();
        const bool arrives = signal("InstallStateChanged", {state, mValues.text()}, DbusService::Updates);
        require((arrives && state >= 1 && state <= 3) || mUpdates.getState() == former,
                "an unknown phase is none");
        const int percent = mUpdates.getInstallPercent();
        const bool progresses =
            signal("InstallProgress", {state, mValues.text(), state}, DbusService::Updates);
        require(mUpdates.getInstallPercent() == (progresses ? state : percent),
                "progress is what the service tells");
    }

    void finishInstallation()
    {
        const bool success = (mValues.byte() & 1) != 0;
        const auto former = mUpdates.getState();
        const bool arrives =
            signal("InstallFinished", {success, mValues.text(), mValues.text()}, DbusService::Updates);
        const auto result = success ? SystemUpdateManager::UpdateStateUpdateComplete
                                    : SystemUpdateManager::UpdateStateUpdateError;
        require(mUpdates.getState() == (arrives ? result : former), "an end is an end");
    }

    void press(int aButton)
    {
        static constexpr void (SystemUpdateManager::*Buttons[])() = {
            &SystemUpdateManager::startDownload, &SystemUpdateManager::pauseDownload,
            &SystemUpdateManager::resumeDownload, &SystemUpdateManager::startInstallation};
        (mUpdates.*Buttons[aButton])();
    }

    void answerList()
    {
        const List list(mValues);
        mAnswered = list.byId;
        mService.answer("GetCurrentNotifications", bent({QVariant::fromValue(list.argument)}));
    }

    void takeList()
    {
        mShown.clear();
        if (mBent)
            return;
        for (auto entry = mAnswered.cbegin(); entry != mAnswered.cend(); ++entry)
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
        for (int row = 0; row < mShown.size(); ++row) {
            const auto& told = *mModel->at(row);
            const Shown& shown = mShown.at(row);
            require(told.getNotificationId() == shown.id && told.getPriority() == shown.priority &&
                        told.getNotificationType() == shown.type &&
                        told.getTypeSpecificIdentifier() == shown.typeId,
                    "each is shown as the service tells it, in order");
            require(!told.getIsLocationValid() ||
                        (std::abs(told.getLatitude()) <= 90 && std::abs(told.getLongitude()) <= 180),
                    "a valid position is on the globe");
        }
    }

    DbusService& mService = DbusService::instance();
    SystemUpdateManager& mUpdates = *SystemUpdateManager::instance();
    NotificationManagerWrapperQml mNotifications;
    Values mValues;
    std::unique_ptr<NotificationListModel> mModel;
    QMap<uint, NotificationInstance> mAnswered;
    QVector<Shown> mShown;
    QVector<int> mShowRequested;
    bool mBent = false;
};

void prepare()
{
    HmiFuzz::application();
    DbusService::instance();
    NotificationMgr::registerTypes();
    UpdateManager::registerTypes();
    QLoggingCategory::setFilterRules(QStringLiteral("hmi.shared.info=false"));
    SystemUpdateManager::instance()->init();
}

} // namespace

// Choices are not used: each deed is followed by its arguments. The first is the list that is there.
int LLVMFuzzerTestOneInput(const std::uint8_t* aData, std::size_t aSize)
{
    static const bool isPrepared = (prepare(), true);
    require(isPrepared, "there is a bus");
    const HmiFuzz::Warnings warnings;
    Input input(aData, aSize);
    Scene(input).run();
    return 0;
}
