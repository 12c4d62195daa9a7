#pragma once

#include <QByteArray>
#include <QFuture>
#include <QHash>
#include <QList>
#include <QString>
#include <type_traits>

#include <platform/data-manager/ReturnCode.h>
#include <platform/data-manager/Value.h>

/**
 * The user data of the head unit: user profiles, and typed settings that are protected, global or of one
 * profile. Every operation returns a ReturnCode; unless that is Ok, an output argument gets its type's
 * default.
 *
 * The data are kept in one file that several processes may use at the same time. Reads come from memory,
 * after a look whether another process wrote. A write is in the file when the call returns Ok (see
 * Durability). When the file cannot be written the call says so and the value is kept in memory: reads return
 * it, and it is written as soon as the file takes it.
 *
 * Names and ids are data: any text of Unicode characters, compared exactly. An id may be empty. An empty
 * profile name stands for the active profile, so no profile has it.
 *
 * Settings of a type other than the one asked for are not converted: bool, int, double, QString and
 * QByteArray are five different types.
 *
 * Main thread only, but for StartUpAsync(), which does its work on another.
 */
namespace DataManager {

/** How long a write waits for another writer, in milliseconds; it holds up the caller. */
constexpr int BusyTimeout = 100;

/** The profile that new profiles start as a copy of; no user's own. It can be neither renamed nor deleted. */
Q_DECL_EXPORT QString builtInProfile();
/** The profile of the user that each store has. It can be neither renamed nor deleted. */
Q_DECL_EXPORT QString defaultUserProfile();

/**
 * Reads the configuration and opens the store, or makes one. The INI file aConfigPath has the group Storage:
 *
 *     Path        the store, relative to the INI file's folder; default hmi_settings.db
 *     Durability  normal (default): what was acknowledged survives the process being killed at any instant; a
 *                 power cut may take what was written in the last half second, never the file.
 *                 full: what was acknowledged survives a power cut; a write waits for the medium.
 *     Defaults    a JSON file whose members are ids and default values; relative to the INI file's folder
 *
 * aParameters of these names, without the group, stand above the file. All processes that use a store give it
 * the same durability.
 *
 * Failed, after a critical message, when the INI file cannot be read; nothing is started then. Where only the
 * store cannot be opened, the data manager starts with what could be read of it and in memory, says so once
 * as a critical message, and goes over to the file when that is possible. When nothing could be read, reading
 * a setting that was not written since is an error and not SettingNotFound, so that nobody takes a value for
 * missing and writes a default over it. A damaged store is renamed to "<name>.damaged-<n>", which is reported
 * likewise, and a new one is made.
 *
 * When started already: DatabaseBuilt or DatabaseOpened, and nothing changes.
 */
Q_DECL_EXPORT int StartUp(const QString& aConfigPath, const QHash<QString, QString>& aParameters = {});

/** StartUp() on another thread. Until it finished, call only IsStarted() and ShutDown(), which waits. */
Q_DECL_EXPORT QFuture<int> StartUpAsync(const QString& aConfigPath,
                                        const QHash<QString, QString>& aParameters = {});

/** Any thread. */
Q_DECL_EXPORT bool IsStarted();

/** Brings everything to the medium and closes the store. Failed when not started. */
Q_DECL_EXPORT int ShutDown();

/** Erases all settings, and all profiles but the two of every store; the default user profile is active. */
Q_DECL_EXPORT int FactoryReset();

/** Gives the profile the settings that a new one has. */
Q_DECL_EXPORT int ResetUserProfile(const QString& aProfile);

/**
 * From beginBatch() to commitBatch() writes are collected; they are stored together or not at all, with one
 * wait for the medium. Reads see them at once. Batches do not nest: of an inner pair nothing is seen.
 */
Q_DECL_EXPORT int beginBatch();
/** The code of the common write; the values stay in memory when it failed, as those of single writes do. */
Q_DECL_EXPORT int commitBatch();

/** The untyped operations behind the templates of Settings. An empty profile is the active one. */
Q_DECL_EXPORT ReadResult readSetting(Scope aScope, const QString& aId, const QString& aProfile = QString());
Q_DECL_EXPORT int writeSetting(Scope aScope, const QString& aId, const Value& aValue,
                               const QString& aProfile = QString());
/** A default of the prototype's type. */
Q_DECL_EXPORT ReadResult readDefault(const QString& aId, const Value& aPrototype);

namespace UserProfile {

/** The new profile starts as a copy of the built-in one. */
Q_DECL_EXPORT int addNewUserProfile(const QString& aName);
/** When it was active, the default user profile is from now on. */
Q_DECL_EXPORT int deleteUserProfile(const QString& aName);
Q_DECL_EXPORT int getActiveUserProfile(QString& aName);
Q_DECL_EXPORT int setActiveUserProfile(const QString& aName);
/** The user's own profile that each store has; active at first. */
Q_DECL_EXPORT int getDefaultUserProfile(QString& aName);
/** The built-in profile, the default user profile, then the others as they were added. */
Q_DECL_EXPORT int getUserProfilesList(QList<QString>& aNames);
Q_DECL_EXPORT int updateProfileAttributesForActiveProfile(const QString& aNewName);
Q_DECL_EXPORT int updateProfileAttributes(const QString& aCurrentName, const QString& aNewName);

} // namespace UserProfile

namespace Settings {

/** For bool, int, double and QString; WrongType when the default is of another type. */
template <class T>
int getDefaultSettingValue(const QString& aId, T& aValue)
{
    static_assert(!std::is_same_v<T, QByteArray>, "JSON knows no byte arrays.");
    return takeValue(readDefault(aId, Value(T())), aValue);
}

template <class T>
int getProtectedSetting(const QString& aId, T& aValue)
{
    return takeValue(readSetting(Scope::Protected, aId), aValue);
}

template <class T>
int getGlobalSetting(const QString& aId, T& aValue)
{
    return takeValue(readSetting(Scope::Global, aId), aValue);
}

template <class T>
int getUserSetting(const QString& aId, T& aValue, const QString& aProfile = QString())
{
    return takeValue(readSetting(Scope::User, aId, aProfile), aValue);
}

template <class T>
int setProtectedSetting(const QString& aId, const T& aValue)
{
    return writeSetting(Scope::Protected, aId, makeValue(aValue));
}

template <class T>
int setGlobalSetting(const QString& aId, const T& aValue)
{
    return writeSetting(Scope::Global, aId, makeValue(aValue));
}

template <class T>
int setUserSetting(const QString& aId, const T& aValue, const QString& aProfile = QString())
{
    return writeSetting(Scope::User, aId, makeValue(aValue), aProfile);
}

/** For every profile there is, and for those that are added later. */
template <class T>
int setUserSettingForAllUsers(const QString& aId, const T& aValue)
{
    return writeSetting(Scope::AllUsers, aId, makeValue(aValue));
}

/**
 * From now on the DataManagerSignalClient of this process tells of changes of the setting, until every owner
 * that requested it has released it. The setting need not exist yet. Requests outlast ShutDown().
 */
Q_DECL_EXPORT int requestSettingChangedSignal(const QString& aId, const QString& aOwner);
Q_DECL_EXPORT int requestSettingChangedSignal(const QList<QString>& aIds, const QString& aOwner);
/** SettingNotFound when this owner had not requested it. */
Q_DECL_EXPORT int releaseSettingChangedSignal(const QString& aId, const QString& aOwner);

} // namespace Settings

} // namespace DataManager
