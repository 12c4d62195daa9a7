#pragma once

#include <QHash>
#include <QString>
#include <vector>

#include <platform/data-manager/Value.h>

namespace DataManager {

/** Whose a stored setting is: one of the two below, or the id of a profile, which is above 0. */
using Owner = qint64;
constexpr Owner ProtectedOwner = -1;
constexpr Owner GlobalOwner = 0;

/** The profiles that every store has: what new profiles are copied from, and the user's own. */
constexpr Owner BuiltInProfileId = 1;
constexpr Owner DefaultUserProfileId = 2;

/** The name of a stored setting. */
struct SettingKey
{
    Owner owner;
    QString id;
};

inline bool operator==(const SettingKey& aFirst, const SettingKey& aSecond)
{
    return aFirst.owner == aSecond.owner && aFirst.id == aSecond.id;
}

inline uint qHash(const SettingKey& aKey, uint aSeed = 0)
{
    return qHash(aKey.id, aSeed ^ static_cast<uint>(aKey.owner));
}

struct Profile
{
    Owner id;
    QString name;
};

/** Everything in a store, as it is in memory. */
struct StoreContent
{
    QHash<SettingKey, Value> settings;
    std::vector<Profile> profiles;              ///< as they were added
    Owner activeProfile = DefaultUserProfileId; ///< unless another one is marked active

    bool isKnown = false; ///< read from a file; the empty one may stand in for what could not be read

    /** That of an empty store. */
    static StoreContent makeEmpty();
};

/** The settings that another value, or none, is shown for: those of profiles that are not active now are not.
 */
std::vector<SettingKey> visibleDifferences(const StoreContent& aBefore, const StoreContent& aNow);

} // namespace DataManager
