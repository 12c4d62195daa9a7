#include <platform/data-manager/ChangeAnnouncer.h>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QMutex>
#include <QMutexLocker>

#include <platform/data-manager/ChangeBus.h>

namespace DataManager {

/** Changes that follow each other faster than this are sent together. */
static constexpr std::chrono::milliseconds GatheringTime(1);

static const QString sConnectionName = QStringLiteral("hmi-data-manager-announcements");

static QMutex sNameMutex;
static QString sBusName;

static void setBusName(const QString& aName)
{
    const QMutexLocker lock(&sNameMutex);
    sBusName = aName;
}

QString ChangeAnnouncer::busName()
{
    const QMutexLocker lock(&sNameMutex);
    return sBusName;
}

ChangeAnnouncer::ChangeAnnouncer() : mThread([this] { run(); }) {}

ChangeAnnouncer::~ChangeAnnouncer()
{
    {
        const std::lock_guard<std::mutex> lock(mMutex);
        mStopping = true;
    }
    mWake.notify_one();
    mThread.join();
}

void ChangeAnnouncer::announceSetting(int aType, const QString& aId)
{
    {
        const std::lock_guard<std::mutex> lock(mMutex);
        mSettings.emplace_back(aType, aId);
    }
    wake();
}

void ChangeAnnouncer::announceSettings(const std::vector<Setting>& aSettings)
{
    {
        const std::lock_guard<std::mutex> lock(mMutex);
        mSettings.insert(mSettings.end(), aSettings.begin(), aSettings.end());
    }
    wake();
}

void ChangeAnnouncer::announceProfile(const QString& aName)
{
    {
        const std::lock_guard<std::mutex> lock(mMutex);
        mProfile = aName;
    }
    wake();
}

/** While the thread gathers it wakes by itself, and waking it costs as much as all the rest. */
void ChangeAnnouncer::wake()
{
    if (mIdle.load(std::memory_order_acquire))
        mWake.notify_one();
}

void ChangeAnnouncer::run()
{
    std::unique_lock<std::mutex> lock(mMutex);
    for (;;) {
        mIdle = true;
        mWake.wait(lock, [this] { return mStopping || !isNothingNew() || isWaiting(); });
        mIdle = false;
        gather();
        lock.unlock();
        const bool sent = send();
        lock.lock();
        const auto pause = sent ? GatheringTime : std::chrono::milliseconds(ChangeBus::ReconnectInterval);
        if (mStopping || mWake.wait_for(lock, pause, [this] { return mStopping; }))
            break;
    }
    gather();
    lock.unlock();
    send();
    QDBusConnection::disconnectFromBus(sConnectionName);
    setBusName(QString());
}

void ChangeAnnouncer::gather()
{
    mWaitingSettings.insert(mSettings.begin(), mSettings.end());
    mSettings.clear();
    if (!mProfile.isEmpty())
        mWaitingProfile = std::exchange(mProfile, QString());
}

/** A bus that went away is left for good; the next one is a new connection. */
static QDBusConnection connectToBus()
{
    QDBusConnection connection(sConnectionName);
    if (connection.isConnected())
        return connection;
    QDBusConnection::disconnectFromBus(sConnectionName);
    connection = QDBusConnection::connectToBus(QDBusConnection::SystemBus, sConnectionName);
    setBusName(connection.baseService());
    return connection;
}

static void sendSignal(const QDBusConnection& aConnection, QLatin1String aName,
                       const QVariantList& aArguments)
{
    QDBusMessage message = QDBusMessage::createSignal(ChangeBus::Path, ChangeBus::Interface, aName);
    message.setArguments(aArguments);
    aConnection.send(message);
}

/** What cannot be sent waits. */
bool ChangeAnnouncer::send()
{
    const QDBusConnection connection = connectToBus();
    if (!connection.isConnected())
        return false;
    if (!mWaitingProfile.isEmpty())
        sendSignal(connection, ChangeBus::ProfileChanged, {std::exchange(mWaitingProfile, QString())});
    for (const auto& [type, id] : std::exchange(mWaitingSettings, {}))
        sendSignal(connection, ChangeBus::SettingChanged, {type, id});
    return true;
}

} // namespace DataManager
