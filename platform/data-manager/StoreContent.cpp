#include <platform/data-manager/StoreContent.h>

#include <platform/data-manager/DataManager.h>

namespace DataManager {

StoreContent StoreContent::makeEmpty()
{
    StoreContent content;
    content.profiles = {{BuiltInProfileId, builtInProfile()}, {DefaultUserProfileId, defaultUserProfile()}};
    return content;
}

std::vector<SettingKey> visibleDifferences(const StoreContent& aBefore, const StoreContent& aNow)
{
    std::vector<SettingKey> keys;
    const auto addVisible = [&](const SettingKey& aKey) {
        if (aKey.owner <= GlobalOwner || aKey.owner == aNow.activeProfile)
            keys.push_back(aKey);
    };
    for (auto was = aBefore.settings.constBegin(); was != aBefore.settings.constEnd(); ++was)
        if (!aNow.settings.contains(was.key()))
            addVisible(was.key());
    for (auto is = aNow.settings.constBegin(); is != aNow.settings.constEnd(); ++is) {
        const auto was = aBefore.settings.constFind(is.key());
        if (was == aBefore.settings.constEnd() || *was != *is)
            addVisible(is.key());
    }
    return keys;
}

} // namespace DataManager
