#pragma once

#include <QString>
#include <QtGlobal>

namespace Hmi::Shared {

/**
 * What a module of the product implements to take part in start-up and shutdown. It is registered with
 * ModuleManager, which calls it on the main thread in this order, each operation once:
 *
 * 1. initialize(), in the order of registration. The first module that fails ends the start-up; the modules
 *    behind it are not called.
 * 2. deInitialize(), in reverse order, only on modules whose initialize() succeeded. All services still
 * exist.
 * 3. deInitializeLate(), in reverse order, on the same modules. The natively owned singletons are gone by now
 *    and must not be used: doing so would create them afresh.
 */
class Q_DECL_EXPORT LifecycleListener
{
public:
    Q_DISABLE_COPY_MOVE(LifecycleListener)
    virtual ~LifecycleListener() = default;

    /** The module's name in messages and on the screens: not empty, unique, and always the same. */
    virtual QString getName() const = 0;

    /** False when the module cannot work; it has then undone what it did and may be asked once more. */
    virtual bool initialize() = 0;

    virtual void deInitialize() = 0;

    virtual void deInitializeLate() = 0;

protected:
    LifecycleListener() = default;
};

} // namespace Hmi::Shared
