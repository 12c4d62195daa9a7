#pragma once

#include <QObject>

#include <hmi/core/foundation/SingletonBase.h>

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
class Q_DECL_EXPORT SingletonCppQml : public SingletonBase<T>
{
public:
    static T* instance()
    {
        T* instance = SingletonCppQml::existing();
        return instance ? instance : SingletonCppQml::createForNative([] { return new T(nullptr, nullptr); });
    }

    /** The provider for qmlRegisterSingletonType(): hands the one instance to the engine, which then owns it.
     */
    static QObject* registerInstance(QQmlEngine* aEngine, QJSEngine* aScriptEngine)
    {
        return SingletonCppQml::createForQml([=] { return new T(aEngine, aScriptEngine); });
    }

protected:
    SingletonCppQml() = default;
};

} // namespace Hmi::Core
