#include <hmi/core/input/HighlightManager.h>

#include <hmi/core/foundation/HmiCoreConfigs.h>

namespace Hmi::Core {

HighlightManager::HighlightManager(bool aEnabled) : mEnabled(aEnabled) {}

HighlightManager::HighlightManager(QQmlEngine*, QJSEngine*) :
    HighlightManager(HmiCoreConfigs::instance()->getHighlightSystemEnabled())
{}

void HighlightManager::setEnabled(bool aEnabled)
{
    if (aEnabled == mEnabled)
        return;
    mEnabled = aEnabled;
    if (!mEnabled)
        replaceItem(nullptr);
    emit enabledChanged();
}

void HighlightManager::setCurrentItem(QObject* aItem)
{
    if (mEnabled)
        replaceItem(aItem);
}

void HighlightManager::replaceItem(QObject* aItem)
{
    if (aItem == mCurrentItem)
        return;
    if (mCurrentItem)
        disconnect(mCurrentItem, &QObject::destroyed, this, &HighlightManager::currentItemChanged);
    mCurrentItem = aItem;
    // The guard is already empty when an item announces its end.
    if (aItem)
        connect(aItem, &QObject::destroyed, this, &HighlightManager::currentItemChanged);
    emit currentItemChanged();
}

} // namespace Hmi::Core
