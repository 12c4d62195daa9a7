#pragma once

#include <QFuture>
#include <QHash>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <memory>

#include <hmi/core/foundation/SingletonCppQml.h>
#include <hmi/shared/settings/DataManagerReturnTypeQml.h>

class DataManagerSignalClient;

namespace Hmi::Shared {

/**
 * The one place through which the HMI reads and writes user data: profiles, and settings that are protected,
 * global or of the active profile. "DataManager" in QML, where the configuration enables it. Every operation
 * returns a new result that the caller owns; before start-up that is DM_ERROR. Main thread only.
 */
class Q_DECL_EXPORT DataManagerWrapper : public Core::SingletonCppQml<DataManagerWrapper>
{
    Q_OBJECT
    Q_PROPERTY(QString activeUserProfile READ getActiveUserProfile WRITE setActiveUserProfile NOTIFY
                   activeUserProfileChanged)
    Q_PROPERTY(bool ready READ getReady NOTIFY readyChanged)
    friend class Core::SingletonCppQml<DataManagerWrapper>;

public:
    using Result = DataManagerReturnTypeQml;

    ~DataManagerWrapper() override;

    /** Whether the data manager is started. */
    bool getReady() const;
    /** Empty when not started. */
    QString getActiveUserProfile() const;
    QString getDefaultUserProfile() const;
    /** The caller owns the result. A profile that is active already is left as it is. */
    Hmi::Shared::DataManagerReturnTypeQml* makeActiveUserProfile(const QString& aName);
    void setActiveUserProfile(const QString& aName);

    Q_INVOKABLE Hmi::Shared::DataManagerReturnTypeQml* addNewUserProfile(const QString& aName);
    Q_INVOKABLE Hmi::Shared::DataManagerReturnTypeQml* deleteUserProfile(const QString& aName);

    Q_INVOKABLE Hmi::Shared::DataManagerReturnTypeQml* getDefaultSettingValueBool(const QString& aSettingId);
    Q_INVOKABLE Hmi::Shared::DataManagerReturnTypeQml* getDefaultSettingValueInt(const QString& aSettingId);
    Q_INVOKABLE Hmi::Shared::DataManagerReturnTypeQml*
    getDefaultSettingValueDouble(const QString& aSettingId);
    Q_INVOKABLE Hmi::Shared::DataManagerReturnTypeQml*
    getDefaultSettingValueString(const QString& aSettingId);

    Q_INVOKABLE Hmi::Shared::DataManagerReturnTypeQml* getProtectedSettingBool(const QString& aSettingId);
    Q_INVOKABLE Hmi::Shared::DataManagerReturnTypeQml*
    getProtectedSettingByteArray(const QString& aSettingId);
    Q_INVOKABLE Hmi::Shared::DataManagerReturnTypeQml* getProtectedSettingInt(const QString& aSettingId);
    Q_INVOKABLE Hmi::Shared::DataManagerReturnTypeQml* getProtectedSettingDouble(const QString& aSettingId);
    Q_INVOKABLE Hmi::Shared::DataManagerReturnTypeQml* getProtectedSettingString(const QString& aSettingId);

    Q_INVOKABLE Hmi::Shared::DataManagerReturnTypeQml* getGlobalSettingBool(const QString& aSettingId);
    Q_INVOKABLE Hmi::Shared::DataManagerReturnTypeQml* getGlobalSettingByteArray(const QString& aSettingId);
    Q_INVOKABLE Hmi::Shared::DataManagerReturnTypeQml* getGlobalSettingInt(const QString& aSettingId);
    Q_INVOKABLE Hmi::Shared::DataManagerReturnTypeQml* getGlobalSettingDouble(const QString& aSettingId);
    Q_INVOKABLE Hmi::Shared::DataManagerReturnTypeQml* getGlobalSettingString(const QString& aSettingId);

    /** The value is a list of names: the built-in profile, the default one, then the others as added. */
    Q_INVOKABLE Hmi::Shared::DataManagerReturnTypeQml* getUserProfilesList();

    /** Of the active profile, as setUserSetting(). */
    Q_INVOKABLE Hmi::Shared::DataManagerReturnTypeQml* getUserSettingBool(const QString& aSettingId);
    Q_INVOKABLE Hmi::Shared::DataManagerReturnTypeQml* getUserSettingByteArray(const QString& aSettingId);
    Q_INVOKABLE Hmi::Shared::DataManagerReturnTypeQml* getUserSettingInt(const QString& aSettingId);
    Q_INVOKABLE Hmi::Shared::DataManagerReturnTypeQml* getUserSettingDouble(const QString& aSettingId);
    Q_INVOKABLE Hmi::Shared::DataManagerReturnTypeQml* getUserSettingString(const QString& aSettingId);

    /** Takes bool, int, double, QString and QByteArray; DM_WRONG_TYPE for any other type of value. */
    Q_INVOKABLE Hmi::Shared::DataManagerReturnTypeQml* setGlobalSetting(const QString& aSettingId,
                                                                        const QVariant& aValue);
    Q_INVOKABLE Hmi::Shared::DataManagerReturnTypeQml* setProtectedSetting(const QString& aSettingId,
                                                                           const QVariant& aValue);
    Q_INVOKABLE Hmi::Shared::DataManagerReturnTypeQml* setUserSetting(const QString& aSettingId,
                                                                      const QVariant& aValue);
    Q_INVOKABLE Hmi::Shared::DataManagerReturnTypeQml* setUserSettingForAllUsers(const QString& aSettingId,
                                                                                 const QVariant& aValue);

    /** Renames. */
    Q_INVOKABLE Hmi::Shared::DataManagerReturnTypeQml*
    updateProfileAttributesForActiveProfile(const QString& aNewProfileName);
    Q_INVOKABLE Hmi::Shared::DataManagerReturnTypeQml*
    updateProfileAttributes(const QString& aCurrentProfileName, const QString& aNewProfileName);

    Q_INVOKABLE Hmi::Shared::DataManagerReturnTypeQml* resetActiveUserProfile();

    /**
     * Asks for userSettingChanged() or globalSettingChanged() of the setting, on behalf of an owner within
     * this application; released when every owner has released it.
     */
    Q_INVOKABLE Hmi::Shared::DataManagerReturnTypeQml*
    requestChangeSignalsForSetting(const QString& aSettingId, const QString& aOwner = QString());
    Q_INVOKABLE Hmi::Shared::DataManagerReturnTypeQml*
    requestChangeSignalsForSettings(const QStringList& aSettingIds, const QString& aOwner = QString());
    Q_INVOKABLE Hmi::Shared::DataManagerReturnTypeQml*
    releaseChangeSignalsForSetting(const QString& aSettingId, const QString& aOwner = QString());

    /**
     * Requests start-up, once: at once, or when the environment manager ends its delay. The parameters stand
     * above the data manager's configuration file (see DataManager::StartUp()). Nothing happens where the
     * configuration does not enable the data manager; that goes for all the following.
     */
    void initialize(const QHash<QString, QString>& aParameters);
    /** Begins start-up on another thread; initialize() collects it. Not while start-up is delayed. */
    void startupAsync(const QHash<QString, QString>& aParameters);
    /** Closes the store; everything is on the medium then. */
    void shutdown();
    /** Erases all user data and starts anew; whether that succeeded. */
    bool factoryReset();

    /** Writes between the two are stored together or not at all, with one wait for the medium. */
    void beginBatch();
    /** Whether they were stored; when not, they are served from memory. */
    bool commitBatch();

signals:
    void readyChanged();
    void activeUserProfileReset();
    void activeUserProfileChanged(const QString& aUserProfile);
    void globalSettingChanged(const QString& aSettingId);
    void userSettingChanged(const QString& aSettingId);

public slots:
    void onProfileChangedSignal(const QString& aProfileName);
    void onSettingChangedSignal(int aSettingType, const QString& aSettingName);
    void startupDataManager();

private:
    DataManagerWrapper(QQmlEngine* aEngine, QJSEngine* aScriptEngine);

    std::unique_ptr<DataManagerSignalClient> mSignalClient;
    bool mInitialized = false;
    QHash<QString, QString> mParameters;
    QFuture<int> mStartup;
    bool mStartupPending = false;
};

} // namespace Hmi::Shared
