#pragma once

#include <QString>
#include <QVariantList>
#include <QVector>

#include <hmi/core/foundation/SingletonCppQml.h>

namespace Hmi::Shared {

class LifecycleListener;

/**
 * The modules of the product, and the one who starts and stops them. LifecycleListener says in which order
 * and what a failure means.
 *
 * The listeners stay the caller's: each unregisters before it goes away, which it may do at any time, also
 * from within one of its own operations. The list of modules belongs to the process and not to the manager,
 * because the late stage of shutdown comes after the natively owned singletons, this one among them, were
 * deleted. Main thread only.
 */
class Q_DECL_EXPORT ModuleManager : public Core::SingletonCppQml<ModuleManager>
{
    Q_OBJECT
    Q_PROPERTY(QVariantList modules READ getModules NOTIFY modulesChanged)
    friend class Core::SingletonCppQml<ModuleManager>;

public:
    enum ModuleState {
        ModuleRegistered,    ///< not initialised yet, or shut down completely
        ModuleInitializing,  ///< inside its initialize()
        ModuleInitialized,   ///< at work
        ModuleFailed,        ///< its initialize() returned false
        ModuleDeInitialized, ///< waiting for the late stage of shutdown
    };
    Q_ENUM(ModuleState)

    /** False, after a warning, when the name is empty or taken. */
    bool registerListener(LifecycleListener* aListener);

    /** A module that is at work is not de-initialised by this; an unknown listener is ignored. */
    void unregisterListener(LifecycleListener* aListener);

    /**
     * Initialises every module that is not at work, those registered meanwhile included. The first that fails
     * is logged as critical and ends it with false. Another call begins with that module again.
     */
    bool initializeModules();

    void deInitializeModules();

    void deInitializeModulesLate();

    /** In the order of registration, each with its "name" and its "state" (ModuleState). */
    QVariantList getModules() const;

signals:
    /** A module came, went or changed its state. */
    void modulesChanged();

private:
    struct Module
    {
        LifecycleListener* listener;
        QString name;
        ModuleState state;
    };

    ModuleManager(QQmlEngine* aEngine, QJSEngine* aScriptEngine);

    bool initialize(LifecycleListener* aListener, const QString& aName);
    void setState(LifecycleListener* aListener, ModuleState aState);
    static LifecycleListener* lastInState(ModuleState aState);

    static QVector<Module> smModules;
};

} // namespace Hmi::Shared
