#include <platform/data-manager/DataManagerSignalClient.h>

#include <QCoreApplication>
#include <QDBusError>

#include <platform/data-manager/ChangeAnnouncer.h>
#include <platform/data-manager/ChangeBus.h>
#include <platform/data-manager/DataManager.h>
#include <platform/data-manager/LocalChanges.h>

namespace ChangeBus = DataManager::ChangeBus;
using DataManager::LocalChanges;

/** Characters of an id in a match rule, which may have 1024 bytes in all. */
static constexpr int MatchableLength = 200;

/** Match rules are text in which these end the id. */
static bool isMatchable(const QString& aId)
{
    return !aId.isNull() && aId.size() <= MatchableLength && !aId.contains(QLatin1Char('\'')) &&
           !aId.contains(QLatin1Char('\\')) && !aId.contains(QLatin1Char(','));
}

static QString nextConnectionName()
{
    static int sNumber = 0;
    return QStringLiteral("hmi-data-manager-client-%1").arg(++sNumber);
}

DataManagerSignalClient::DataManagerSignalClient(const QDBusConnection& aConnection, QObject* aParent) :
    QObject(aParent), mOwnConnectionName(nextConnectionName()), mConnection(aConnection)
{
    LocalChanges* const changes = &LocalChanges::instance();
    connect(changes, &LocalChanges::settingChanged, this,
            &DataManagerSignalClient::DataManagerSettingChanged);
    connect(changes, &LocalChanges::profileChanged, this, &DataManagerSignalClient::tellProfile);
    connect(changes, &LocalChanges::requested, this, &DataManagerSignalClient::subscribeSetting);
    connect(changes, &LocalChanges::released, this, &DataManagerSignalClient::unsubscribeSetting);
    DataManager::UserProfile::getActiveUserProfile(mActiveProfile);
    mReconnect.setInterval(ChangeBus::ReconnectInterval);
    connect(&mReconnect, &QTimer::timeout, this, &DataManagerSignalClient::reconnect);
    // The connection of the process stays lost once it is.
    if (mConnection.isConnected() || connectAnew())
        subscribe();
    else
        onBusLost();
}

/** A connection that closes while its signals still come in leaves some behind that point to it. */
DataManagerSignalClient::~DataManagerSignalClient()
{
    const QStringList ids = LocalChanges::instance().getRequested();
    for (const QString& id : ids)
        unsubscribeSetting(id);
    changeMatches(&QDBusConnection::disconnect);
    QCoreApplication::removePostedEvents(this, QEvent::MetaCall);
    QDBusConnection::disconnectFromBus(mOwnConnectionName);
}

void DataManagerSignalClient::subscribe()
{
    changeMatches(&QDBusConnection::connect);
    mUnmatchable = 0;
    const QStringList ids = LocalChanges::instance().getRequested();
    for (const QString& id : ids)
        subscribeSetting(id);
}

/** Those that do not depend on what is requested. */
void DataManagerSignalClient::changeMatches(ChangeMatch aChange)
{
    (mConnection.*aChange)(QString(), QStringLiteral("/org/freedesktop/DBus/Local"),
                           QStringLiteral("org.freedesktop.DBus.Local"), QStringLiteral("Disconnected"), this,
                           SLOT(onBusLost()));
    (mConnection.*aChange)(QString(), ChangeBus::Path, ChangeBus::Interface, ChangeBus::ProfileChanged, this,
                           SLOT(onBusProfile(QString, QDBusMessage)));
}

void DataManagerSignalClient::subscribeSetting(const QString& aId)
{
    if (isMatchable(aId) || mUnmatchable++ == 0)
        connectSetting(aId, true);
}

void DataManagerSignalClient::unsubscribeSetting(const QString& aId)
{
    if (isMatchable(aId) || --mUnmatchable == 0)
        connectSetting(aId, false);
}

/** The first id that a match rule cannot hold lets all through, and the last one shuts them out again. */
void DataManagerSignalClient::connectSetting(const QString& aId, bool aSubscribe)
{
    const bool matchable = isMatchable(aId);
    // The first argument, the type, may be any.
    const QStringList match = matchable ? QStringList{QString(), aId} : QStringList();
    const char* const slot = matchable ? SLOT(onBusSetting(int, QString, QDBusMessage))
                                       : SLOT(onBusUnmatchable(int, QString, QDBusMessage));
    const QString signature = QStringLiteral("is");
    if (aSubscribe)
        mConnection.connect(QString(), ChangeBus::Path, ChangeBus::Interface, ChangeBus::SettingChanged,
                            match, signature, this, slot);
    else
        mConnection.disconnect(QString(), ChangeBus::Path, ChangeBus::Interface, ChangeBus::SettingChanged,
                               match, signature, this, slot);
}

void DataManagerSignalClient::onBusLost()
{
    const QString error = mConnection.lastError().message();
    qWarning("The data manager does not reach the system bus (%s): what other processes change is seen only "
             "when it "
             "is read. The bus is looked for every second.",
             error.isEmpty() ? "it went away" : qUtf8Printable(error));
    mReconnect.start();
}

bool DataManagerSignalClient::connectAnew()
{
    QDBusConnection::disconnectFromBus(mOwnConnectionName);
    mConnection = QDBusConnection::connectToBus(QDBusConnection::SystemBus, mOwnConnectionName);
    return mConnection.isConnected();
}

void DataManagerSignalClient::reconnect()
{
    if (!connectAnew())
        return;
    qInfo("The data manager reaches the system bus again.");
    mReconnect.stop();
    subscribe();
    tellWhatMayHaveChanged();
}

void DataManagerSignalClient::tellWhatMayHaveChanged()
{
    QString active;
    if (DataManager::UserProfile::getActiveUserProfile(active) == DataManager::Ok && active != mActiveProfile)
        tellProfile(active);
    const QStringList ids = LocalChanges::instance().getRequested();
    for (const QString& id : ids)
        for (const int type : {ChangeBus::UserSetting, ChangeBus::ProtectedSetting, ChangeBus::GlobalSetting})
            emit DataManagerSettingChanged(type, id);
}

void DataManagerSignalClient::tellProfile(const QString& aName)
{
    mActiveProfile = aName;
    emit DataManagerProfileChanged(aName);
}

/** What this process wrote it has told already. */
void DataManagerSignalClient::onBusSetting(int aType, const QString& aId, const QDBusMessage& aMessage)
{
    if (aMessage.service() != DataManager::ChangeAnnouncer::busName())
        emit DataManagerSettingChanged(aType, aId);
}

void DataManagerSignalClient::onBusUnmatchable(int aType, const QString& aId, const QDBusMessage& aMessage)
{
    if (!isMatchable(aId) && LocalChanges::instance().isRequested(aId))
        onBusSetting(aType, aId, aMessage);
}

void DataManagerSignalClient::onBusProfile(const QString& aName, const QDBusMessage& aMessage)
{
    if (aMessage.service() != DataManager::ChangeAnnouncer::busName())
        tellProfile(aName);
}
