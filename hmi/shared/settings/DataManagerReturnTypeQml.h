#pragma once

#include <QObject>
#include <QVariant>

namespace Hmi::Shared {

/**
 * The result of an operation of DataManagerWrapper: how it ended and, for a read, the value. Has no parent;
 * who called the operation owns it, in QML the script engine.
 */
class Q_DECL_EXPORT DataManagerReturnTypeQml : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QVariant value READ getValue CONSTANT)
    Q_PROPERTY(ErrorCode error READ getError CONSTANT)

public:
    enum ErrorCode {
        DM_OK,
        DM_ERROR, ///< not started, or a code that is not known
        DM_SQL_ERROR,
        DM_CANNOT_ADD_USER,
        DM_ID_NOT_FOUND, ///< no such profile
        DM_UNABLE_TO_UPDATE,
        DM_ID_ALREADY_EXISTS, ///< a profile of this name exists
        DM_NO_DEFAULT,
        DM_WRONG_TYPE,
        DM_SETTING_NOT_FOUND,
        DM_CANNOT_UPDATE_DEFAULT_PROFILE,
        DM_DB_BUILT,
        DM_DB_OPENED,
        DM_DB_BUSY
    };
    Q_ENUM(ErrorCode)

    /** From a code of the data manager's library (ReturnCode.h). One that is not known is a warning. */
    DataManagerReturnTypeQml(int aReturnCode, const QVariant& aValue, QObject* aParent = nullptr);

    /** Invalid for an operation that only writes. */
    QVariant getValue() const { return mValue; }
    ErrorCode getError() const { return mError; }

private:
    const QVariant mValue;
    const ErrorCode mError;
};

} // namespace Hmi::Shared
