#include <platform/data-manager/LocalChanges.h>

namespace DataManager {

LocalChanges& LocalChanges::instance()
{
    // Its users are singletons of the libraries above, which end with the process.
    static LocalChanges& sInstance = *new LocalChanges;
    return sInstance;
}

void LocalChanges::request(const QString& aId, const QString& aOwner)
{
    QSet<QString>& owners = mOwners[aId];
    const bool first = owners.isEmpty();
    owners.insert(aOwner);
    if (first)
        emit requested(aId);
}

bool LocalChanges::release(const QString& aId, const QString& aOwner)
{
    const auto entry = mOwners.find(aId);
    if (entry == mOwners.end() || !entry->remove(aOwner))
        return false;
    if (entry->isEmpty()) {
        mOwners.erase(entry);
        emit released(aId);
    }
    return true;
}

void LocalChanges::notifySetting(int aType, const QString& aId)
{
    if (isRequested(aId))
        emit settingChanged(aType, aId);
}

} // namespace DataManager
