#pragma once

#include <QtGlobal>

namespace Hmi::Shared {

/** Makes the QML files compiled into the library available; a host with its own entry point calls it first.
 */
Q_DECL_EXPORT void registerResources();

/** Withdraws what registerResources() made available. */
Q_DECL_EXPORT void unregisterResources();

/**
 * Registers the QML modules of the library, all of version 1.0: "hmi.shared", "hmi.asr", "hmi.navigation"
 * with "hmi.navigation.guidance", and "hmi.vehicle". To be called after the core's initialisation. Once per
 * process; later calls do nothing. Creates no object but the configuration's facade.
 */
Q_DECL_EXPORT void registerQmlModules();

/**
 * The single modules, for plugins: Qt lets a plugin register types only in the module that it was loaded for.
 * They may run on any thread. "DataManager" and "SystemUpdateManager" are there only where the configuration
 * enables them.
 */
Q_DECL_EXPORT void registerSharedModule(bool aDataManagerEnabled, bool aSystemUpdateEnabled);
Q_DECL_EXPORT void registerAsrModule();
Q_DECL_EXPORT void registerNavigationModule();
Q_DECL_EXPORT void registerGuidanceModule();
Q_DECL_EXPORT void registerVehicleModule();

/**
 * Starts the library in a host that loads the modules as plugins, after the core's initializePluginHost():
 * nobody there says when start-up is complete, so it is at once. Main thread only.
 */
Q_DECL_EXPORT void startPluginHost();

} // namespace Hmi::Shared
