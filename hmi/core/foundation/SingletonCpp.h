#pragma once

#include <QMutex>
#include <QMutexLocker>
#include <QObject>

#include <hmi/core/foundation/InstanceTracker.h>

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
class Q_DECL_EXPORT SingletonCpp : public QObject
{
public:
    ~SingletonCpp() override
    {
        // An object that was constructed beside the instance leaves it alone.
        if (sTracker.getInstance() == this)
            sTracker.setInstance(nullptr);
    }

    static T* instance()
    {
        if (QObject* existing = sTracker.getInstance())
            return static_cast<T*>(existing);
        return createInstance();
    }

protected:
    SingletonCpp() = default;

private:
    static T* createInstance()
    {
        const QMutexLocker lock(&sInitLock);
        if (QObject* existing = sTracker.getInstance())
            return static_cast<T*>(existing);
        InstanceTracker::requireMainThread();
        T* created = new T;
        sTracker.setInstance(created);
        sTracker.setOwnedByQml(false);
        return created;
    }

    static InstanceTracker sTracker;
    static QMutex sInitLock;
};

template <class T>
InstanceTracker SingletonCpp<T>::sTracker;

template <class T>
QMutex SingletonCpp<T>::sInitLock;

} // namespace Hmi::Core
