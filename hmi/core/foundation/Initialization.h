#pragma once

#include <QHash>
#include <QSharedPointer>
#include <QString>

namespace Hmi::Core {

class PerfEventPolicyBase;

/** Makes the QML files compiled into the core available; a host with its own entry point calls it first. */
Q_DECL_EXPORT void registerResources();

/** Withdraws what registerResources() made available. */
Q_DECL_EXPORT void unregisterResources();

/**
 * Brings the core up, on the main thread: registers the QML module "Hmi.Core" 1.0, loads the configuration,
 * applies it to the running application (alpha buffer, touch distances, default font) and loads the
 * resources, themes first. The steps raise the events "Hmi/Core/" + "loadConfigStart", "loadConfigEnd",
 * "configureStart", "configureEnd", "loadResourcesStart", "loadThemesStart" and "loadResourcesEnd" when there
 * is a policy.
 *
 * The configuration path names the INI file; empty: the application's name + ".ini" in the working directory.
 * The overrides are texts for the placeholders of the file (see ConfigManager).
 *
 * May run again; the configuration is read at most once per process. A missing file is a warning, and every
 * key then has its default.
 */
Q_DECL_EXPORT void initialize(const QSharedPointer<PerfEventPolicyBase>& aPerfEventPolicy,
                              const QString& aConfigPath, const QHash<QString, QString>& aOverrides);

/**
 * What initialize() does, for hosts that load the QML modules as plugins (Qt's qml, qmlscene and
 * qmltestrunner): the types are registered by the plugins, and the environment variable HMI_CONFIG names the
 * INI file. Nothing happens when the core is up already.
 */
Q_DECL_EXPORT void initializePluginHost();

/**
 * A switch of the file that initializePluginHost() will load; false when the file or key is not there. For
 * plugins, which have to know it before that. Any thread.
 */
Q_DECL_EXPORT bool readPluginHostSwitch(const QString& aKey);

} // namespace Hmi::Core
