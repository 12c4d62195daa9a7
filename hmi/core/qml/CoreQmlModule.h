#pragma once

#include <QtGlobal>

namespace Hmi::Core {

/**
 * Registers the QML module "Hmi.Core" 1.0: creatable types, singletons, then the types that QML may only
 * name. Creates no object, so that it may run on any thread. Once per process; later calls do nothing.
 */
Q_DECL_EXPORT void registerQmlModule();

} // namespace Hmi::Core
