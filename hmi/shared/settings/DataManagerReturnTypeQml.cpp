#include <hmi/shared/settings/DataManagerReturnTypeQml.h>

#include <hmi/shared/application/LoggingCategory.h>
#include <platform/data-manager/ReturnCode.h>

namespace Hmi::Shared {

static DataManagerReturnTypeQml::ErrorCode toErrorCode(int aReturnCode)
{
    switch (aReturnCode) {
    case DataManager::Ok:
        return DataManagerReturnTypeQml::DM_OK;
    case DataManager::Failed:
        return DataManagerReturnTypeQml::DM_ERROR;
    case DataManager::SqlError:
        return DataManagerReturnTypeQml::DM_SQL_ERROR;
    case DataManager::CannotAddUser:
        return DataManagerReturnTypeQml::DM_CANNOT_ADD_USER;
    case DataManager::ProfileNotFound:
        return DataManagerReturnTypeQml::DM_ID_NOT_FOUND;
    case DataManager::UnableToUpdate:
        return DataManagerReturnTypeQml::DM_UNABLE_TO_UPDATE;
    case DataManager::ProfileExists:
        return DataManagerReturnTypeQml::DM_ID_ALREADY_EXISTS;
    case DataManager::NoDefault:
        return DataManagerReturnTypeQml::DM_NO_DEFAULT;
    case DataManager::WrongType:
        return DataManagerReturnTypeQml::DM_WRONG_TYPE;
    case DataManager::SettingNotFound:
        return DataManagerReturnTypeQml::DM_SETTING_NOT_FOUND;
    case DataManager::CannotUpdateDefaultProfile:
        return DataManagerReturnTypeQml::DM_CANNOT_UPDATE_DEFAULT_PROFILE;
    case DataManager::DatabaseBuilt:
        return DataManagerReturnTypeQml::DM_DB_BUILT;
    case DataManager::DatabaseOpened:
        return DataManagerReturnTypeQml::DM_DB_OPENED;
    case DataManager::DatabaseBusy:
        return DataManagerReturnTypeQml::DM_DB_BUSY;
    default:
        qCWarning(hmiShared) << "ERROR: Unknown return value" << aReturnCode;
        return DataManagerReturnTypeQml::DM_ERROR;
    }
}

DataManagerReturnTypeQml::DataManagerReturnTypeQml(int aReturnCode, const QVariant& aValue,
                                                   QObject* aParent) :
    QObject(aParent), mValue(aValue), mError(toErrorCode(aReturnCode))
{}

} // namespace Hmi::Shared
