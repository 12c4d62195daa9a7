#include <platform/data-manager/DataManagerSignalClient.h>

#include <QCoreApplication>
#include <QDBusError>
#include <utility>

#include <platform/data-manager/ChangeAnnouncer.h>
#include <platform/data-manager/ChangeBus.h>
#include <platform/data-manager/DataManager.h>
#include <platform/data-manager/LocalChanges.h>

namespace ChangeBus = DataManager::ChangeBus;
using DataManager::LocalChanges;

/** Characters of an id in a match rule, which may have 1024 bytes in all. */
static constexpr int MatchableLength = 200;

/** How long the bus may take to answer, in milliseconds. */
static constexpr int ConfirmationTimeout = 5000;

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

DataManagerSignalClient::DataManagerSignalClient(QObject* aParent) :
    DataManagerSignalClient(Bus::Connector(&QDBusConnection::systemBus), aParent)
{}

DataManagerSignalClient::DataManagerSignalClient(const QDBusConnection& aConnection, QObject* aParent) :
    DataManagerSignalClient(Bus::connectorOf(aConnection), aParent)
{}

DataManagerSignalClient::DataManagerSignalClient(const Bus::Connector& aConnector, QObject* aParent) :
    QObject(aParent), mOwnConnectionName(nextConnectionName()), mConnection(QString())
{
    LocalChanges* const changes = &LocalChanges::instance();
    connect(changes, &LocalChanges::settingChanged, this,
            &DataManagerSignalClient::DataManagerSettingChanged);
    connect(changes, &LocalChanges::profileChanged, this, &DataManagerSignalClient::tellProfile);
    connect(changes, &LocalChanges::requested, this, &DataManagerSignalClient::subscribeSetting);
    connect(changes, &LocalChanges::released, this, &DataManagerSignalClient::unsubscribeSetting);
    mReconnect.setInterval(ChangeBus::ReconnectInterval);
    mReconnect.setSingleShot(true);
    connect(&mReconnect, &QTimer::timeout, this, &DataManagerSignalClient::reconnect);
    mWork.add([=] { open(aConnector); });
    subscribe();
    DataManager::UserProfile::getActiveUserProfile(mActiveProfile);
}

/** A connection that closes while its signals still come in leaves some behind that point to it. */
DataManagerSignalClient::~DataManagerSignalClient()
{
    const QStringList ids = LocalChanges::instance().getRequested();
    for (const QString& id : ids)
        unsubscribeSetting(id);
    mWork.add([this] { changeMatches(&QDBusConnection::disconnect); });
    mWork.finish();
    QCoreApplication::removePostedEvents(this, QEvent::MetaCall);
    QDBusConnection::disconnectFromBus(mOwnConnectionName);
}

/** The connection of the process stays lost once it is. */
void DataManagerSignalClient::open(const Bus::Connector& aConnector)
{
    mConnection = aConnector();
    if (!(mConnection.isConnected() || connectAnew()) || !connectMatches())
        tellLost();
}

/** False when the bus went away before its loss would be told. */
bool DataManagerSignalClient::connectMatches()
{
    changeMatches(&QDBusConnection::connect);
    return mConnection.isConnected();
}

void DataManagerSignalClient::subscribe()
{
    mUnmatchable = 0;
    const QStringList ids = LocalChanges::instance().getRequested();
    for (const QString& id : ids)
        subscribeSetting(id);
    confirmSoon();
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
        mWork.add([=] { connectSetting(aId, true); });
    confirmSoon();
}

void DataManagerSignalClient::unsubscribeSetting(const QString& aId)
{
    if (isMatchable(aId) || --mUnmatchable == 0)
        mWork.add([=] { connectSetting(aId, false); });
}

/** Once for all that is requested in this turn of the event loop. */
void DataManagerSignalClient::confirmSoon()
{
    if (std::exchange(mToBeConfirmed, true))
        return;
    if (mConfirmations++ == 0)
        mTakeovers = LocalChanges::instance().getTakeovers();
    QMetaObject::invokeMethod(this, &DataManagerSignalClient::confirm, Qt::QueuedConnection);
}

/** The bus answers what it is asked in order. */
void DataManagerSignalClient::confirm()
{
    mToBeConfirmed = false;
    mWork.add([this] {
        const QString bus = QStringLiteral("org.freedesktop.DBus");
        mConnection.call(QDBusMessage::createMethodCall(bus, QStringLiteral("/org/freedesktop/DBus"), bus,
                                                        QStringLiteral("GetId")),
                         QDBus::Block, ConfirmationTimeout);
        QMetaObject::invokeMethod(this, &DataManagerSignalClient::onConfirmed, Qt::QueuedConnection);
    });
}

/** To ask for the profile takes over what others wrote. */
void DataManagerSignalClient::onConfirmed()
{
    --mConfirmations;
    QString active;
    if (DataManager::UserProfile::getActiveUserProfile(active) == DataManager::Ok && active != mActiveProfile)
        tellProfile(active);
    const int takeovers = LocalChanges::instance().getTakeovers();
    const bool othersWrote = std::exchange(mTakeovers, takeovers) != takeovers;
    if (std::exchange(mTellAll, false) || othersWrote)
        tellSettings();
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
    mWork.add([this] { tellLost(); });
}

void DataManagerSignalClient::tellLost()
{
    const QString error = mConnection.lastError().message();
    QMetaObject::invokeMethod(
        this, [=] { onLost(error); }, Qt::QueuedConnection);
}

void DataManagerSignalClient::onLost(const QString& aError)
{
    if (std::exchange(mLost, true))
        return;
    qWarning("The data manager does not reach the system bus (%s): what other processes change is seen only "
             "when it "
             "is read. The bus is looked for every second.",
             aError.isEmpty() ? "it went away" : qUtf8Printable(aError));
    mReconnect.start();
}

bool DataManagerSignalClient::connectAnew()
{
    QDBusConnection::disconnectFromBus(mOwnConnectionName);
    mConnection = QDBusConnection::connectToBus(QDBusConnection::SystemBus, mOwnConnectionName);
    return mConnection.isConnected();
}

/** The loss was the last that came over the old connection, so nothing points to that any more. */
void DataManagerSignalClient::reconnect()
{
    mWork.add([this] {
        const bool isConnected = connectAnew() && connectMatches();
        const auto goOn = [=] { isConnected ? onReconnected() : mReconnect.start(); };
        QMetaObject::invokeMethod(this, goOn, Qt::QueuedConnection);
    });
}

/** What changed while there was no bus is told as what changed before the bus knew what is requested. */
void DataManagerSignalClient::onReconnected()
{
    qInfo("The data manager reaches the system bus again.");
    mLost = false;
    mTellAll = true;
    subscribe();
}

void DataManagerSignalClient::tellSettings()
{
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
