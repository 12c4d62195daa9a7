#pragma once

#include <QMetaObject>
#include <QMutex>
#include <QMutexLocker>
#include <QSet>

#include <hmi/shared/services/TaskStatusReceiver.h>

namespace Hmi::Shared {

/**
 * Reports to every receiver of a class at once, from any thread; a receiver of another thread gets its report
 * through that thread's event loop. The class has the set of its instances and the lock of that; the lock is
 * recursive, as a receiver of the calling thread may make or delete others in its slots.
 */
class TaskStatusReports
{
public:
    template <class Class>
    static void add(Class* aInstance)
    {
        const QMutexLocker lock(&Class::smLock);
        Class::smInstances.insert(aInstance);
    }

    template <class Class>
    static void remove(Class* aInstance)
    {
        const QMutexLocker lock(&Class::smLock);
        Class::smInstances.remove(aInstance);
    }

    template <class Class, class Argument>
    static void report(const char* aSetter, const Argument& aArgument)
    {
        const QMutexLocker lock(&Class::smLock);
        const auto instances = Class::smInstances;
        for (Class* const instance : instances) {
            if (Class::smInstances.contains(instance))
                QMetaObject::invokeMethod(instance, aSetter, aArgument);
        }
    }
};

} // namespace Hmi::Shared
