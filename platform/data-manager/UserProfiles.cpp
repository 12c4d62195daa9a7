#include <platform/data-manager/UserProfiles.h>

#include <platform/data-manager/SettingStore.h>

namespace DataManager {

int UserProfiles::add(const QString& aName)
{
    if (aName.isEmpty())
        return CannotAddUser;
    if (mStore.findProfile(aName))
        return ProfileExists;
    return mStore.change([&](StoreFile& aFile) {
        Owner id = 0;
        const int code = aFile.addProfile(aName, id);
        return code == SQLITE_OK ? aFile.resetProfile(id) : code;
    });
}

int UserProfiles::findChangeable(const QString& aName, Owner& aId)
{
    const Profile* const profile = mStore.findProfile(aName);
    if (!profile)
        return ProfileNotFound;
    aId = profile->id;
    return aId <= DefaultUserProfileId ? CannotUpdateDefaultProfile : Ok;
}

int UserProfiles::remove(const QString& aName)
{
    Owner id = 0;
    const int found = aName.isEmpty() ? int(ProfileNotFound) : findChangeable(aName, id);
    if (found != Ok)
        return found;
    return mStore.change([&](StoreFile& aFile) { return aFile.deleteProfile(id); });
}

int UserProfiles::rename(const QString& aName, const QString& aNewName)
{
    Owner id = 0;
    const int found = findChangeable(aName, id);
    if (found != Ok)
        return found;
    if (aNewName.isEmpty())
        return UnableToUpdate;
    const Profile* const taken = mStore.findProfile(aNewName);
    if (taken)
        return taken->id == id ? Ok : ProfileExists;
    return mStore.change([&](StoreFile& aFile) { return aFile.renameProfile(id, aNewName); });
}

int UserProfiles::activate(const QString& aName)
{
    const Profile* const profile = aName.isEmpty() ? nullptr : mStore.findProfile(aName);
    if (!profile)
        return ProfileNotFound;
    const Owner id = profile->id;
    if (id == mStore.getContent().activeProfile)
        return Ok;
    return mStore.change([&](StoreFile& aFile) { return aFile.activateProfile(id); });
}

int UserProfiles::reset(const QString& aName)
{
    const Profile* const profile = mStore.findProfile(aName);
    if (!profile)
        return ProfileNotFound;
    const Owner id = profile->id;
    return mStore.change([&](StoreFile& aFile) { return aFile.resetProfile(id); });
}

} // namespace DataManager
