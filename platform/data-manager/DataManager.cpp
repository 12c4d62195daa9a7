#include <platform/data-manager/DataManager.h>

#include <QCoreApplication>
#include <QMutex>
#include <QMutexLocker>
#include <QtConcurrentRun>
#include <atomic>
#include <memory>
#include <optional>

#include <platform/data-manager/LocalChanges.h>
#include <platform/data-manager/SettingStore.h>
#include <platform/data-manager/UserProfiles.h>

namespace DataManager {

/** Held while the store comes and goes. */
static QMutex sLifecycle;
static std::unique_ptr<SettingStore> sStore;
static std::atomic<bool> sStarted{false};

static SettingStore* startedStore() { return IsStarted() ? sStore.get() : nullptr; }

/** Runs an operation of the store, or fails when there is none. */
template <class Operation>
static int withStore(Operation aOperation)
{
    SettingStore* const store = startedStore();
    return store ? aOperation(*store) : Failed;
}

QString builtInProfile() { return QStringLiteral("default"); }

QString defaultUserProfile() { return QStringLiteral("driver"); }

/** What nobody shut down is, with the application. */
static void shutDownAtExit() { ShutDown(); }

int StartUp(const QString& aConfigPath, const QHash<QString, QString>& aParameters)
{
    const QMutexLocker lock(&sLifecycle);
    if (sStore)
        return sStore->getOrigin();
    const std::optional<StoreConfiguration> configuration = readConfiguration(aConfigPath, aParameters);
    if (!configuration)
        return Failed;
    sStore = std::make_unique<SettingStore>(*configuration);
    if (QCoreApplication* const application = QCoreApplication::instance()) {
        sStore->moveToThread(application->thread());
        static const bool sAtExit = (qAddPostRoutine(&shutDownAtExit), true);
        Q_UNUSED(sAtExit)
    }
    sStarted.store(true, std::memory_order_release);
    return Ok;
}

QFuture<int> StartUpAsync(const QString& aConfigPath, const QHash<QString, QString>& aParameters)
{
    return QtConcurrent::run([=] { return StartUp(aConfigPath, aParameters); });
}

bool IsStarted() { return sStarted.load(std::memory_order_acquire); }

int ShutDown()
{
    const QMutexLocker lock(&sLifecycle);
    if (!sStore)
        return Failed;
    sStarted.store(false, std::memory_order_release);
    sStore.reset();
    return Ok;
}

int FactoryReset()
{
    return withStore([](SettingStore& aStore) { return aStore.eraseEverything(); });
}

int ResetUserProfile(const QString& aProfile)
{
    return withStore([&](SettingStore& aStore) { return UserProfiles(aStore).reset(aProfile); });
}

int beginBatch()
{
    return withStore([](SettingStore& aStore) { return aStore.beginBatch(); });
}

int commitBatch()
{
    return withStore([](SettingStore& aStore) { return aStore.commitBatch(); });
}

ReadResult readSetting(Scope aScope, const QString& aId, const QString& aProfile)
{
    SettingStore* const store = startedStore();
    return store ? store->read(aScope, aId, aProfile) : ReadResult();
}

int writeSetting(Scope aScope, const QString& aId, const Value& aValue, const QString& aProfile)
{
    SettingStore* const store = startedStore();
    return store ? store->write(aScope, aId, aValue, aProfile) : int(Failed);
}

ReadResult readDefault(const QString& aId, const Value& aPrototype)
{
    SettingStore* const store = startedStore();
    return store ? store->readDefault(aId, aPrototype) : ReadResult();
}

namespace UserProfile {

int addNewUserProfile(const QString& aName)
{
    return withStore([&](SettingStore& aStore) { return UserProfiles(aStore).add(aName); });
}

int deleteUserProfile(const QString& aName)
{
    return withStore([&](SettingStore& aStore) { return UserProfiles(aStore).remove(aName); });
}

int getActiveUserProfile(QString& aName)
{
    SettingStore* const store = startedStore();
    aName = store ? store->getActiveProfileName() : QString();
    return store ? Ok : Failed;
}

int setActiveUserProfile(const QString& aName)
{
    return withStore([&](SettingStore& aStore) { return UserProfiles(aStore).activate(aName); });
}

int getDefaultUserProfile(QString& aName)
{
    aName = IsStarted() ? defaultUserProfile() : QString();
    return IsStarted() ? Ok : Failed;
}

int getUserProfilesList(QList<QString>& aNames)
{
    SettingStore* const store = startedStore();
    aNames = store ? store->getProfileNames() : QStringList();
    return store ? Ok : Failed;
}

int updateProfileAttributesForActiveProfile(const QString& aNewName)
{
    return updateProfileAttributes(QString(), aNewName);
}

int updateProfileAttributes(const QString& aCurrentName, const QString& aNewName)
{
    return withStore(
        [&](SettingStore& aStore) { return UserProfiles(aStore).rename(aCurrentName, aNewName); });
}

} // namespace UserProfile

namespace Settings {

int requestSettingChangedSignal(const QString& aId, const QString& aOwner)
{
    return requestSettingChangedSignal(QList<QString>{aId}, aOwner);
}

int requestSettingChangedSignal(const QList<QString>& aIds, const QString& aOwner)
{
    if (!IsStarted())
        return Failed;
    for (const QString& id : aIds)
        LocalChanges::instance().request(id, aOwner);
    return Ok;
}

int releaseSettingChangedSignal(const QString& aId, const QString& aOwner)
{
    if (!IsStarted())
        return Failed;
    return LocalChanges::instance().release(aId, aOwner) ? Ok : SettingNotFound;
}

} // namespace Settings

} // namespace DataManager
