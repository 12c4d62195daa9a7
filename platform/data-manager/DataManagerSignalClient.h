#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QString>
#include <QTimer>

#include <platform/bus/BusWork.h>
#include <platform/bus/Connector.h>

/**
 * Tells of changes of the user data: of the active profile always, of settings when they are requested (see
 * DataManager::Settings::requestSettingChangedSignal()). What this process writes is told before the
 * operation returns, what others write comes over the bus; settings that nobody requested wake nobody.
 *
 * Without a bus, which is one warning, only this process's own changes are told. A bus that is absent or goes
 * away is looked for every second; when it is there, every requested setting is told once, and the active
 * profile if it is another, as they may have changed meanwhile. Ids with a NUL character cannot travel on a
 * bus.
 *
 * Nothing here waits for the bus but the destructor: to request a setting asks the bus for its changes beside
 * the main thread. What another process changes before the bus knows of that is told from the event loop
 * when it does: then all requested settings are told if others wrote meanwhile. Main thread only.
 */
class Q_DECL_EXPORT DataManagerSignalClient : public QObject
{
    Q_OBJECT

public:
    /** On the system bus. A connection that is lost is replaced by one of its own to the system bus. */
    explicit DataManagerSignalClient(QObject* aParent = nullptr);
    explicit DataManagerSignalClient(const QDBusConnection& aConnection, QObject* aParent = nullptr);
    ~DataManagerSignalClient() override;

signals:
    void DataManagerProfileChanged(const QString& aProfileName);
    /** The type is 0 user, 1 protected, 2 user for all users, 3 global. */
    void DataManagerSettingChanged(const int& aSettingType, const QString& aSettingName);

private slots:
    void onBusLost();
    void onBusSetting(int aType, const QString& aId, const QDBusMessage& aMessage);
    void onBusUnmatchable(int aType, const QString& aId, const QDBusMessage& aMessage);
    void onBusProfile(const QString& aName, const QDBusMessage& aMessage);

private:
    DataManagerSignalClient(const Bus::Connector& aConnector, QObject* aParent);

    using ChangeMatch = bool (QDBusConnection::*)(const QString& aService, const QString& aPath,
                                                  const QString& aInterface, const QString& aSignal,
                                                  QObject* aReceiver, const char* aSlot);

    void subscribe();
    void subscribeSetting(const QString& aId);
    void unsubscribeSetting(const QString& aId);
    void confirmSoon();
    void confirm();
    void onConfirmed();
    void onLost(const QString& aError);
    void reconnect();
    void onReconnected();
    void tellSettings();
    void tellProfile(const QString& aName);

    // Carried out as bus work.
    void open(const Bus::Connector& aConnector);
    bool connectAnew();
    bool connectMatches();
    void changeMatches(ChangeMatch aChange);
    void connectSetting(const QString& aId, bool aSubscribe);
    void tellLost();

    const QString mOwnConnectionName;
    QTimer mReconnect;
    QString mActiveProfile;
    int mUnmatchable = 0;        ///< requested ids that a match rule cannot hold
    bool mToBeConfirmed = false; ///< that the bus knows of what was requested
    int mConfirmations = 0;      ///< that the bus was asked for and that have not come
    int mTakeovers = 0;          ///< of others' writes, when the first of these was needed
    bool mTellAll = false;
    bool mLost = false;
    QDBusConnection mConnection; ///< of the bus work
    Bus::BusWork mWork;
};
