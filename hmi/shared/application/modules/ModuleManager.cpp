#include <hmi/shared/application/modules/ModuleManager.h>

#include <QVariantMap>
#include <algorithm>

#include <hmi/shared/LifecycleListener.h>

namespace Hmi::Shared {

QVector<ModuleManager::Module> ModuleManager::smModules;

ModuleManager::ModuleManager(QQmlEngine*, QJSEngine*) {}

bool ModuleManager::registerListener(LifecycleListener* aListener)
{
    const QString name = aListener->getName();
    const bool taken = std::any_of(smModules.cbegin(), smModules.cend(),
                                   [&](const Module& module) { return module.name == name; });
    if (name.isEmpty() || taken) {
        qWarning("The module name \"%s\" is empty or taken; the module is not registered.", qPrintable(name));
        return false;
    }
    smModules.append({aListener, name, ModuleRegistered});
    emit modulesChanged();
    return true;
}

void ModuleManager::unregisterListener(LifecycleListener* aListener)
{
    const auto end = std::remove_if(smModules.begin(), smModules.end(),
                                    [&](const Module& module) { return module.listener == aListener; });
    if (end == smModules.end())
        return;
    smModules.erase(end, smModules.end());
    emit modulesChanged();
}

// A module may register and unregister others, so each step looks for the next one afresh.
bool ModuleManager::initializeModules()
{
    const auto isWaiting = [](const Module& module) {
        return module.state == ModuleRegistered || module.state == ModuleFailed;
    };
    for (;;) {
        const auto next = std::find_if(smModules.cbegin(), smModules.cend(), isWaiting);
        if (next == smModules.cend())
            return true;
        if (!initialize(next->listener, QString(next->name)))
            return false;
    }
}

bool ModuleManager::initialize(LifecycleListener* aListener, const QString& aName)
{
    setState(aListener, ModuleInitializing);
    const bool initialized = aListener->initialize();
    setState(aListener, initialized ? ModuleInitialized : ModuleFailed);
    if (!initialized)
        qCritical("The module \"%s\" could not be initialised; the modules behind it are not started.",
                  qPrintable(aName));
    return initialized;
}

void ModuleManager::deInitializeModules()
{
    while (LifecycleListener* listener = lastInState(ModuleInitialized)) {
        setState(listener, ModuleDeInitialized);
        listener->deInitialize();
    }
}

void ModuleManager::deInitializeModulesLate()
{
    while (LifecycleListener* listener = lastInState(ModuleDeInitialized)) {
        setState(listener, ModuleRegistered);
        listener->deInitializeLate();
    }
}

LifecycleListener* ModuleManager::lastInState(ModuleState aState)
{
    const auto last = std::find_if(smModules.crbegin(), smModules.crend(),
                                   [&](const Module& module) { return module.state == aState; });
    return last == smModules.crend() ? nullptr : last->listener;
}

void ModuleManager::setState(LifecycleListener* aListener, ModuleState aState)
{
    const auto module = std::find_if(smModules.begin(), smModules.end(),
                                     [&](const Module& other) { return other.listener == aListener; });
    if (module == smModules.end() || module->state == aState)
        return;
    module->state = aState;
    emit modulesChanged();
}

QVariantList ModuleManager::getModules() const
{
    QVariantList modules;
    for (const Module& module : qAsConst(smModules))
        modules.append(QVariantMap{{QStringLiteral("name"), module.name},
                                   {QStringLiteral("state"), static_cast<int>(module.state)}});
    return modules;
}

} // namespace Hmi::Shared
