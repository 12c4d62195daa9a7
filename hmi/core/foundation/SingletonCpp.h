#pragma once

#include <hmi/core/foundation/SingletonBase.h>

namespace Hmi::Core {

/**
 * Base of a service class that exists once and is used from native code only.
 *
 *     class Q_DECL_EXPORT Clock : public Hmi::Core::SingletonCpp<Clock>
 *     {
 *         Q_OBJECT
 *         friend class Hmi::Core::SingletonCpp<Clock>;
 *         Clock();
 *     };
 *
 * The instance is created on first use, on the application's main thread; a first use elsewhere, or without a
 * QCoreApplication, ends the process with "Singleton must be created on main thread". Once created it may be
 * reached from any thread without a lock. It is owned by its InstanceTracker, which deletes it at shutdown in
 * reverse order of creation; deleting it by hand makes the next use create a new one.
 *
 * A class in a shared library must be exported, so that every library and plugin of the process shares its
 * statics.
 */
template <class T>
class Q_DECL_EXPORT SingletonCpp : public SingletonBase<T>
{
public:
    static T* instance()
    {
        T* instance = SingletonCpp::existing();
        return instance ? instance : SingletonCpp::createForNative([] { return new T; });
    }

protected:
    SingletonCpp() = default;
};

} // namespace Hmi::Core
