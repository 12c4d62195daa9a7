#pragma once

#include <QMutex>
#include <QMutexLocker>
#include <QObject>

#include <hmi/core/foundation/InstanceTracker.h>

class QJSEngine;
class QQmlEngine;

namespace Hmi::Core {

/**
 * Base of a service class that exists once, is used from native code and is handed to QML as a singleton
 * type.
 *
 *     class Q_DECL_EXPORT Clock : public Hmi::Core::SingletonCppQml<Clock>
 *     {
 *         Q_OBJECT
 *         friend class Hmi::Core::SingletonCppQml<Clock>;
 *         Clock(QQmlEngine* aEngine, QJSEngine* aScriptEngine);
 *     };
 *     qmlRegisterSingletonType<Clock>("hmi.shared", 1, 0, "Clock", &Clock::registerInstance);
 *
 * For native code it behaves as SingletonCpp: created on the main thread on first use, then reachable from
 * any thread without a lock. Once a QML engine has asked for it the engine owns it, also when native code
 * created it, and deletes it with itself; the next use then creates a new one. Instances that no engine took
 * are deleted by InstanceTracker::deleteInstancesCpp() or at process exit.
 *
 * The constructor's engine arguments are null when native code creates the instance.
 */
template <class T>
class Q_DECL_EXPORT SingletonCppQml : public QObject
{
public:
    ~SingletonCppQml() override
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

    /** The provider for qmlRegisterSingletonType(): hands the one instance to the engine, which then owns it.
     */
    static QObject* registerInstance(QQmlEngine* aEngine, QJSEngine* aScriptEngine)
    {
        QObject* provided = sTracker.getInstance();
        if (!provided) {
            const QMutexLocker lock(&sInitLock);
            provided = sTracker.getInstance();
            if (!provided) {
                provided = new T(aEngine, aScriptEngine);
                sTracker.setInstance(provided);
            }
        }
        sTracker.setOwnedByQml(true);
        return provided;
    }

protected:
    SingletonCppQml() = default;

private:
    static T* createInstance()
    {
        const QMutexLocker lock(&sInitLock);
        if (QObject* existing = sTracker.getInstance())
            return static_cast<T*>(existing);
        InstanceTracker::requireMainThread();
        T* created = new T(nullptr, nullptr);
        sTracker.setInstance(created);
        sTracker.setOwnedByQml(false);
        return created;
    }

    static InstanceTracker sTracker;
    static QMutex sInitLock;
};

template <class T>
InstanceTracker SingletonCppQml<T>::sTracker;

template <class T>
QMutex SingletonCppQml<T>::sInitLock;

} // namespace Hmi::Core
