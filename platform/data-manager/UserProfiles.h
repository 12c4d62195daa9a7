#pragma once

#include <QString>

#include <platform/data-manager/StoreContent.h>

namespace DataManager {

class SettingStore;

/** What can be done with the profiles of a store. Returned are codes of ReturnCode.h. Main thread only. */
class UserProfiles
{
public:
    explicit UserProfiles(SettingStore& aStore) : mStore(aStore) {}

    int add(const QString& aName);
    int remove(const QString& aName);
    /** An empty current name is that of the active profile. */
    int rename(const QString& aName, const QString& aNewName);
    int activate(const QString& aName);
    /** The settings that a new profile has. */
    int reset(const QString& aName);

private:
    /** Ok with the id of a profile that may be renamed and removed. */
    int findChangeable(const QString& aName, Owner& aId);

    SettingStore& mStore;
};

} // namespace DataManager
