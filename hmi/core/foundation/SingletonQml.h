#pragma once

#include <QObject>

class QJSEngine;
class QQmlEngine;

namespace Hmi::Core {

/**
 * Base of a class of which every QML engine has an instance of its own. Nothing is tracked: each engine owns
 * and deletes the object that it asked for, and native code cannot reach it.
 */
template <class T>
class Q_DECL_EXPORT SingletonQml : public QObject
{
public:
    /** The provider for qmlRegisterSingletonType(): a new object every time it is called. */
    static QObject* registerInstance(QQmlEngine* aEngine, QJSEngine* aScriptEngine)
    {
        return new T(aEngine, aScriptEngine);
    }

protected:
    SingletonQml() = default;
};

} // namespace Hmi::Core
