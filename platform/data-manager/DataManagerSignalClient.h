#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QString>
#include <QTimer>

/**
 * Tells of changes of the user data: of the active profile always, of settings when they are requested (see
 * DataManager::Settings::requestSettingChangedSignal()). What this process writes is told before the
 * operation returns, what others write comes over the bus; settings that nobody requested wake nobody.
 *
 * Without a bus, which is one warning, only this process's own changes are told. A bus that is absent or goes
 * away is looked for every second; when it is there, every requested setting is told once, and the active
 * profile if it is another, as they may have changed meanwhile. Ids with a NUL character cannot travel on a
 * bus. Main thread only.
 */
class Q_DECL_EXPORT DataManagerSignalClient : public QObject
{
    Q_OBJECT

public:
    /** A connection that is lost is replaced by one of its own to the system bus. */
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
    using ChangeMatch = bool (QDBusConnection::*)(const QString& aService, const QString& aPath,
                                                  const QString& aInterface, const QString& aSignal,
                                                  QObject* aReceiver, const char* aSlot);

    void subscribe();
    void changeMatches(ChangeMatch aChange);
    void subscribeSetting(const QString& aId);
    void unsubscribeSetting(const QString& aId);
    bool connectAnew();
    void reconnect();
    void connectSetting(const QString& aId, bool aSubscribe);
    void tellWhatMayHaveChanged();
    void tellProfile(const QString& aName);

    const QString mOwnConnectionName;
    QDBusConnection mConnection;
    QTimer mReconnect;
    QString mActiveProfile;
    int mUnmatchable = 0; ///< requested ids that a match rule cannot hold
};
