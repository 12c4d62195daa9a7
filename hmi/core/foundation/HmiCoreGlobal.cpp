#include <hmi/core/foundation/HmiCoreGlobal.h>

#include <QQmlEngine>

namespace Hmi::Core {

HmiCoreGlobal::HmiCoreGlobal(QQmlEngine*, QJSEngine*) {}

HmiCoreConfigs* HmiCoreGlobal::getConfigs() const
{
    HmiCoreConfigs* configs = HmiCoreConfigs::instance();
    QQmlEngine::setObjectOwnership(configs, QQmlEngine::CppOwnership);
    return configs;
}

void HmiCoreGlobal::setApplicationViewMode(ApplicationViewMode aApplicationViewMode)
{
    if (aApplicationViewMode == mApplicationViewMode)
        return;
    mApplicationViewMode = aApplicationViewMode;
    emit applicationViewModeChanged();
}

} // namespace Hmi::Core
