#include <platform/data-manager/PendingValues.h>

#include <platform/data-manager/StoreFile.h>

namespace DataManager {

static std::optional<Value> findStored(const StoreContent& aContent, const SettingKey& aKey)
{
    const auto setting = aContent.settings.constFind(aKey);
    return setting == aContent.settings.constEnd() ? std::nullopt : std::optional<Value>(*setting);
}

void PendingValues::keep(const SettingKey& aKey, const StoreContent& aContent, bool aYields)
{
    if (!mSettings.contains(aKey))
        mSettings.insert(aKey, {aYields && aContent.isKnown, findStored(aContent, aKey)});
}

void PendingValues::keepAll(const StoreContent& aContent)
{
    for (auto setting = aContent.settings.constBegin(); setting != aContent.settings.constEnd(); ++setting)
        if (!mSettings.contains(setting.key()))
            mSettings.insert(setting.key(), {true, std::nullopt});
}

void PendingValues::putOver(StoreContent& aRead, const StoreContent& aInMemory)
{
    for (auto pending = mSettings.begin(); pending != mSettings.end();) {
        const bool yields = pending->yields && aRead.isKnown;
        if (yields && findStored(aRead, pending.key()) != pending->stored) {
            pending = mSettings.erase(pending);
        } else {
            aRead.settings.insert(pending.key(), *aInMemory.settings.constFind(pending.key()));
            ++pending;
        }
    }
}

int PendingValues::write(StoreFile& aFile, const StoreContent& aInMemory) const
{
    int code = SQLITE_OK;
    for (auto pending = mSettings.constBegin(); code == SQLITE_OK && pending != mSettings.constEnd();
         ++pending)
        code = aFile.write(pending.key(), *aInMemory.settings.constFind(pending.key()));
    return code;
}

} // namespace DataManager
