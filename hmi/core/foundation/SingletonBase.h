#pragma once

#include <QMutex>
#include <QMutexLocker>
#include <QObject>

#include <hmi/core/foundation/InstanceTracker.h>

namespace Hmi::Core {

/**
 * What SingletonCpp and SingletonCppQml share: the one object of class T, found without a lock and created
 * under one. Not for use by itself.
 */
template <class T>
class Q_DECL_EXPORT SingletonBase : public QObject
{
public:
    ~SingletonBase() override
    {
        // An object that was constructed beside the instance leaves it alone.
        if (sTracker.getInstance() == this)
            sTracker.setInstance(nullptr);
    }

protected:
    SingletonBase() = default;

    static T* existing() { return static_cast<T*>(sTracker.getInstance()); }

    /** The instance, made by aCreate on the main thread and natively owned unless another thread was first.
     */
    template <class Create>
    static T* createForNative(Create aCreate)
    {
        const QMutexLocker lock(&sInitLock);
        if (T* other = existing())
            return other;
        InstanceTracker::requireMainThread();
        T* created = aCreate();
        sTracker.setInstance(created);
        sTracker.setOwnedByQml(false);
        return created;
    }

    /** The instance, made by aCreate when there is none, which from now on a QML engine owns. */
    template <class Create>
    static T* createForQml(Create aCreate)
    {
        T* provided = existing();
        if (!provided) {
            const QMutexLocker lock(&sInitLock);
            provided = existing();
            if (!provided) {
                provided = aCreate();
                sTracker.setInstance(provided);
            }
        }
        sTracker.setOwnedByQml(true);
        return provided;
    }

private:
    static InstanceTracker sTracker;
    static QMutex sInitLock;
};

template <class T>
InstanceTracker SingletonBase<T>::sTracker;

template <class T>
QMutex SingletonBase<T>::sInitLock;

} // namespace Hmi::Core
