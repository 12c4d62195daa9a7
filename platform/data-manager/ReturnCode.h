#pragma once

namespace DataManager {

/** What every operation of the data manager returns. The numbers are those of the platform's service. */
enum ReturnCode : int {
    Failed = -1, ///< not started, or the configuration cannot be read
    Ok = 0,
    SqlError = 1,        ///< the file refused the operation; the log has its words
    CannotAddUser = 100, ///< a profile has to have a name
    ProfileNotFound = 101,
    UnableToUpdate = 102, ///< the new name of a profile is empty
    ProfileExists = 103,
    NoDefault = 200, ///< the defaults hold no value of this type under the id
    WrongType = 201, ///< a value of another type is stored under the id
    SettingNotFound = 202,
    CannotUpdateDefaultProfile = 203,
    DatabaseBuilt = 900,  ///< started already, on a store that was made anew
    DatabaseOpened = 901, ///< started already, on a store that was there
    DatabaseBusy = 902    ///< another writer held the file for longer than BusyTimeout
};

} // namespace DataManager
