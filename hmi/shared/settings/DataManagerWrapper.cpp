#include <hmi/shared/settings/DataManagerWrapper.h>

#include <QCoreApplication>

#include <hmi/shared/application/HmiSharedConfigs.h>
#include <hmi/shared/application/LoggingCategory.h>
#include <hmi/shared/application/modules/HmiSharedGlobal.h>
#include <hmi/shared/services/EnvironmentManager.h>
#include <platform/data-manager/ChangeBus.h>
#include <platform/data-manager/DataManager.h>
#include <platform/data-manager/DataManagerSignalClient.h>

namespace Hmi::Shared {

using Result = DataManagerReturnTypeQml;
namespace UserProfile = DataManager::UserProfile;
namespace Settings = DataManager::Settings;

/** An operation without a value. */
template <class Operation>
static Result* perform(Operation aOperation)
{
    return new Result(DataManager::IsStarted() ? aOperation() : int(DataManager::Failed), QVariant());
}

/** A getter of the library with its output argument. */
template <class T, class Getter>
static Result* readAs(Getter aGetter)
{
    if (!DataManager::IsStarted())
        return new Result(DataManager::Failed, QVariant());
    T value = T();
    const int code = aGetter(value);
    return new Result(code, QVariant::fromValue(value));
}

template <class T>
static Result* readDefault(const QString& aId)
{
    return readAs<T>([&](T& aValue) { return Settings::getDefaultSettingValue(aId, aValue); });
}

template <class T>
static Result* readProtected(const QString& aId)
{
    return readAs<T>([&](T& aValue) { return Settings::getProtectedSetting(aId, aValue); });
}

template <class T>
static Result* readGlobal(const QString& aId)
{
    return readAs<T>([&](T& aValue) { return Settings::getGlobalSetting(aId, aValue); });
}

template <class T>
static Result* readUser(const QString& aId)
{
    return readAs<T>([&](T& aValue) { return Settings::getUserSetting(aId, aValue); });
}

/** A setter of the library, in the overload of the value's type. */
template <class Setter>
static Result* write(const QVariant& aValue, Setter aSetter)
{
    return perform([&]() -> int {
        switch (static_cast<QMetaType::Type>(aValue.type())) {
        case QMetaType::Bool:
            return aSetter(aValue.toBool());
        case QMetaType::Int:
            return aSetter(aValue.toInt());
        case QMetaType::Double:
            return aSetter(aValue.toDouble());
        case QMetaType::QString:
            return aSetter(aValue.toString());
        case QMetaType::QByteArray:
            return aSetter(aValue.toByteArray());
        default:
            return DataManager::WrongType;
        }
    });
}

static QString fullOwner(const QString& aOwner)
{
    const QString application = QCoreApplication::applicationName();
    return aOwner.isEmpty() ? application : application + QStringLiteral("::") + aOwner;
}

static bool isEnabled() { return HmiSharedConfigs::instance()->getDataManagerEnabled(); }

static QString configPath() { return HmiSharedConfigs::instance()->getDataManagerConfigPath(); }

DataManagerWrapper::DataManagerWrapper(QQmlEngine*, QJSEngine*) {}

DataManagerWrapper::~DataManagerWrapper() = default;

bool DataManagerWrapper::getReady() const { return DataManager::IsStarted(); }

QString DataManagerWrapper::getActiveUserProfile() const
{
    QString name;
    return UserProfile::getActiveUserProfile(name) == DataManager::Ok ? name : QString();
}

QString DataManagerWrapper::getDefaultUserProfile() const
{
    QString name;
    return UserProfile::getDefaultUserProfile(name) == DataManager::Ok ? name : QString();
}

Result* DataManagerWrapper::makeActiveUserProfile(const QString& aName)
{
    return perform([&] {
        QString active;
        const int code = UserProfile::getActiveUserProfile(active);
        return active == aName ? code : UserProfile::setActiveUserProfile(aName);
    });
}

void DataManagerWrapper::setActiveUserProfile(const QString& aName) { delete makeActiveUserProfile(aName); }

Result* DataManagerWrapper::addNewUserProfile(const QString& aName)
{
    return perform([&] { return UserProfile::addNewUserProfile(aName); });
}

Result* DataManagerWrapper::deleteUserProfile(const QString& aName)
{
    return perform([&] { return UserProfile::deleteUserProfile(aName); });
}

Result* DataManagerWrapper::getDefaultSettingValueBool(const QString& aSettingId)
{
    return readDefault<bool>(aSettingId);
}

Result* DataManagerWrapper::getDefaultSettingValueInt(const QString& aSettingId)
{
    return readDefault<int>(aSettingId);
}

Result* DataManagerWrapper::getDefaultSettingValueDouble(const QString& aSettingId)
{
    return readDefault<double>(aSettingId);
}

Result* DataManagerWrapper::getDefaultSettingValueString(const QString& aSettingId)
{
    return readDefault<QString>(aSettingId);
}

Result* DataManagerWrapper::getProtectedSettingBool(const QString& aSettingId)
{
    return readProtected<bool>(aSettingId);
}

Result* DataManagerWrapper::getProtectedSettingByteArray(const QString& aSettingId)
{
    return readProtected<QByteArray>(aSettingId);
}

Result* DataManagerWrapper::getProtectedSettingInt(const QString& aSettingId)
{
    return readProtected<int>(aSettingId);
}

Result* DataManagerWrapper::getProtectedSettingDouble(const QString& aSettingId)
{
    return readProtected<double>(aSettingId);
}

Result* DataManagerWrapper::getProtectedSettingString(const QString& aSettingId)
{
    return readProtected<QString>(aSettingId);
}

Result* DataManagerWrapper::getGlobalSettingBool(const QString& aSettingId)
{
    return readGlobal<bool>(aSettingId);
}

Result* DataManagerWrapper::getGlobalSettingByteArray(const QString& aSettingId)
{
    return readGlobal<QByteArray>(aSettingId);
}

Result* DataManagerWrapper::getGlobalSettingInt(const QString& aSettingId)
{
    return readGlobal<int>(aSettingId);
}

Result* DataManagerWrapper::getGlobalSettingDouble(const QString& aSettingId)
{
    return readGlobal<double>(aSettingId);
}

Result* DataManagerWrapper::getGlobalSettingString(const QString& aSettingId)
{
    return readGlobal<QString>(aSettingId);
}

Result* DataManagerWrapper::getUserProfilesList()
{
    return readAs<QStringList>([](QStringList& aNames) { return UserProfile::getUserProfilesList(aNames); });
}

Result* DataManagerWrapper::getUserSettingBool(const QString& aSettingId)
{
    return readUser<bool>(aSettingId);
}

Result* DataManagerWrapper::getUserSettingByteArray(const QString& aSettingId)
{
    return readUser<QByteArray>(aSettingId);
}

Result* DataManagerWrapper::getUserSettingInt(const QString& aSettingId) { return readUser<int>(aSettingId); }

Result* DataManagerWrapper::getUserSettingDouble(const QString& aSettingId)
{
    return readUser<double>(aSettingId);
}

Result* DataManagerWrapper::getUserSettingString(const QString& aSettingId)
{
    return readUser<QString>(aSettingId);
}

Result* DataManagerWrapper::setGlobalSetting(const QString& aSettingId, const QVariant& aValue)
{
    return write(aValue, [&](const auto& aTyped) { return Settings::setGlobalSetting(aSettingId, aTyped); });
}

Result* DataManagerWrapper::setProtectedSetting(const QString& aSettingId, const QVariant& aValue)
{
    return write(aValue,
                 [&](const auto& aTyped) { return Settings::setProtectedSetting(aSettingId, aTyped); });
}

Result* DataManagerWrapper::setUserSetting(const QString& aSettingId, const QVariant& aValue)
{
    return write(aValue, [&](const auto& aTyped) { return Settings::setUserSetting(aSettingId, aTyped); });
}

Result* DataManagerWrapper::setUserSettingForAllUsers(const QString& aSettingId, const QVariant& aValue)
{
    return write(aValue,
                 [&](const auto& aTyped) { return Settings::setUserSettingForAllUsers(aSettingId, aTyped); });
}

Result* DataManagerWrapper::updateProfileAttributesForActiveProfile(const QString& aNewProfileName)
{
    return perform([&] { return UserProfile::updateProfileAttributesForActiveProfile(aNewProfileName); });
}

Result* DataManagerWrapper::updateProfileAttributes(const QString& aCurrentProfileName,
                                                    const QString& aNewProfileName)
{
    return perform(
        [&] { return UserProfile::updateProfileAttributes(aCurrentProfileName, aNewProfileName); });
}

Result* DataManagerWrapper::resetActiveUserProfile()
{
    const QString active = getActiveUserProfile();
    if (active.isEmpty())
        return new Result(DataManager::Failed, QVariant());
    const int code = DataManager::ResetUserProfile(active);
    if (code == DataManager::Ok)
        emit activeUserProfileReset();
    return new Result(code, QVariant());
}

Result* DataManagerWrapper::requestChangeSignalsForSetting(const QString& aSettingId, const QString& aOwner)
{
    return perform([&] { return Settings::requestSettingChangedSignal(aSettingId, fullOwner(aOwner)); });
}

Result* DataManagerWrapper::requestChangeSignalsForSettings(const QStringList& aSettingIds,
                                                            const QString& aOwner)
{
    return perform([&] {
        return Settings::requestSettingChangedSignal(QList<QString>(aSettingIds), fullOwner(aOwner));
    });
}

Result* DataManagerWrapper::releaseChangeSignalsForSetting(const QString& aSettingId, const QString& aOwner)
{
    return perform([&] { return Settings::releaseSettingChangedSignal(aSettingId, fullOwner(aOwner)); });
}

void DataManagerWrapper::initialize(const QHash<QString, QString>& aParameters)
{
    if (!isEnabled() || mInitialized)
        return;
    mParameters = aParameters;
    const EnvironmentManager* const environment = HmiSharedGlobal::instance()->getEnvironmentManager();
    if (environment->getDelayStartup())
        connect(environment, &EnvironmentManager::delayCompleted, this,
                &DataManagerWrapper::startupDataManager, Qt::UniqueConnection);
    else
        startupDataManager();
    mInitialized = true;
}

void DataManagerWrapper::startupAsync(const QHash<QString, QString>& aParameters)
{
    mParameters = aParameters;
    if (mStartupPending || !isEnabled() ||
        HmiSharedGlobal::instance()->getEnvironmentManager()->getDelayStartup())
        return;
    mStartup = DataManager::StartUpAsync(configPath(), aParameters);
    mStartupPending = true;
}

void DataManagerWrapper::startupDataManager()
{
    if (!isEnabled() || (DataManager::IsStarted() && !mStartupPending))
        return;
    const QString path = configPath();
    const int code = mStartupPending ? mStartup.result() : DataManager::StartUp(path, mParameters);
    mStartupPending = false;
    if (code != DataManager::Ok) {
        qCDebug(hmiShared) << "DataManagerWrapper: Error starting up the Data Manager. Path:" << path
                           << "Return Code:" << code;
        return;
    }
    emit readyChanged();
    mSignalClient = std::make_unique<DataManagerSignalClient>();
    connect(mSignalClient.get(), &DataManagerSignalClient::DataManagerProfileChanged, this,
            &DataManagerWrapper::onProfileChangedSignal);
    connect(mSignalClient.get(), &DataManagerSignalClient::DataManagerSettingChanged, this,
            &DataManagerWrapper::onSettingChangedSignal);
}

void DataManagerWrapper::shutdown()
{
    if (!isEnabled() || !mInitialized)
        return;
    // A delay that ends later is no reason to start again.
    disconnect(HmiSharedGlobal::instance()->getEnvironmentManager(), nullptr, this, nullptr);
    mSignalClient.reset();
    DataManager::ShutDown();
    mInitialized = false;
}

bool DataManagerWrapper::factoryReset()
{
    if (!DataManager::IsStarted())
        return false;
    DataManager::FactoryReset();
    DataManager::ShutDown();
    const QString path = configPath();
    const int code = DataManager::StartUp(path, mParameters);
    if (code != DataManager::Ok)
        qCDebug(hmiShared) << "DataManagerWrapper: Error starting up the Data Manager. Path:" << path
                           << "Return Code:" << code;
    return code == DataManager::Ok;
}

void DataManagerWrapper::beginBatch() { DataManager::beginBatch(); }

bool DataManagerWrapper::commitBatch() { return DataManager::commitBatch() == DataManager::Ok; }

void DataManagerWrapper::onProfileChangedSignal(const QString& aProfileName)
{
    emit activeUserProfileChanged(aProfileName);
}

void DataManagerWrapper::onSettingChangedSignal(int aSettingType, const QString& aSettingName)
{
    switch (aSettingType) {
    case DataManager::ChangeBus::UserSetting:
    case DataManager::ChangeBus::AllUsersSetting:
        emit userSettingChanged(aSettingName);
        break;
    case DataManager::ChangeBus::GlobalSetting:
        emit globalSettingChanged(aSettingName);
        break;
    default:
        break;
    }
}

} // namespace Hmi::Shared
