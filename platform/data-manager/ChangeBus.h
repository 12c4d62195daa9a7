#pragma once

#include <QLatin1String>

/** Where changes of the user data are announced: signals on the system bus, of no service in particular. */
namespace DataManager::ChangeBus {

const QLatin1String Path("/com/korvex/DataManager");
const QLatin1String Interface("com.korvex.DataManager");
/** With the setting's type (i), as in SettingType, and its id (s). */
const QLatin1String SettingChanged("DataManagerSettingChanged");
/** With the name of the profile that is active now (s). */
const QLatin1String ProfileChanged("DataManagerProfileChanged");

enum SettingType : int { UserSetting, ProtectedSetting, AllUsersSetting, GlobalSetting };

/** How long to wait after the bus was found absent before the next look, in milliseconds. */
constexpr int ReconnectInterval = 1000;

} // namespace DataManager::ChangeBus
