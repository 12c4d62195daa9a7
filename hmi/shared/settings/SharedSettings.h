#pragma once

#include <QJsonObject>
#include <QList>

class QLocale;

namespace Hmi::Shared {

class Setting;

/** The settings that the library itself needs, as SettingsManager::addSharedSettings() publishes them. */
namespace SharedSettings {

/**
 * The object of the resource "DEFAULTS_SETTINGS_SHARED": the theme's, else the one that is compiled into the
 * library.
 */
QJsonObject defaults();

/**
 * All but the locale, without a parent; the locale decides some of the defaults. A unit that the defaults
 * name and nobody knows is a warning, and -1.
 */
QList<Setting*> create(const QLocale& aLocale);

} // namespace SharedSettings

} // namespace Hmi::Shared
