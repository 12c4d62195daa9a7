#include <hmi/shared/settings/Setting.h>

#include <QScopedValueRollback>
#include <limits>
#include <memory>

#include <hmi/shared/application/LoggingCategory.h>
#include <hmi/shared/settings/DataManagerWrapper.h>

namespace Hmi::Shared {

using Result = DataManagerReturnTypeQml;
using Getter = Result* (DataManagerWrapper::*)(const QString&);
using Setter = Result* (DataManagerWrapper::*)(const QString&, const QVariant&);

struct Setting::Stored
{
    Result::ErrorCode error;
    QVariant value;
};

static Getter findGetter(Setting::SettingCategory aCategory, Setting::SettingType aType)
{
    using Manager = DataManagerWrapper;
    static constexpr Getter getters[][6] = {
        {&Manager::getUserSettingBool, &Manager::getUserSettingInt, &Manager::getUserSettingDouble,
         &Manager::getUserSettingString, nullptr, &Manager::getUserSettingByteArray},
        {&Manager::getGlobalSettingBool, &Manager::getGlobalSettingInt, &Manager::getGlobalSettingDouble,
         &Manager::getGlobalSettingString, nullptr, &Manager::getGlobalSettingByteArray},
        {&Manager::getProtectedSettingBool, &Manager::getProtectedSettingInt,
         &Manager::getProtectedSettingDouble, &Manager::getProtectedSettingString, nullptr,
         &Manager::getProtectedSettingByteArray},
    };
    const bool known = aCategory >= Setting::SettingCategoryUser &&
                       aCategory <= Setting::SettingCategoryProtected && aType >= Setting::SettingTypeBool &&
                       aType <= Setting::SettingTypeByteArray;
    return known ? getters[aCategory][aType] : nullptr;
}

static Setter findSetter(Setting::SettingCategory aCategory)
{
    switch (aCategory) {
    case Setting::SettingCategoryUser:
        return &DataManagerWrapper::setUserSetting;
    case Setting::SettingCategoryGlobal:
        return &DataManagerWrapper::setGlobalSetting;
    case Setting::SettingCategoryProtected:
        return &DataManagerWrapper::setProtectedSetting;
    }
    return nullptr;
}

/** QVariant takes any double for an int, and cuts off what does not fit. */
static bool convertsToInt(const QVariant& aValue)
{
    bool converts = false;
    aValue.toInt(&converts);
    bool isNumber = false;
    const double number = aValue.toDouble(&isNumber);
    return converts && (!isNumber || (number >= std::numeric_limits<int>::min() &&
                                      number <= std::numeric_limits<int>::max()));
}

/** Half of a character would come back from the store as another one. */
static bool isStorable(const QString& aText)
{
    return aText.size() <= Setting::MaximumLength && aText.isValidUtf16();
}

Setting::Setting(const QString& aKey, const QString& aName, SettingType aType, const QVariant& aDefault,
                 bool aExportable, SettingCategory aCategory, QObject* aParent) :
    QObject(aParent),
    mExportable(aExportable),
    mCategory(aCategory),
    mKey(aKey),
    mName(aName),
    mType(aType),
    mDefault(aDefault)
{
    const DataManagerWrapper* manager = DataManagerWrapper::instance();
    if (!manager->getReady())
        connect(manager, &DataManagerWrapper::readyChanged, this, &Setting::onDataManagerReadyChanged);
    if (mCategory == SettingCategoryUser)
        connect(manager, &DataManagerWrapper::activeUserProfileChanged, this, &Setting::onUserProfileChanged);
}

Setting::Setting(const QString& aKey, const QString& aName, SettingType aType, const QVariant& aDefault,
                 SettingCategory aCategory, QObject* aParent) :
    Setting(aKey, aName, aType, aDefault, true, aCategory, aParent)
{}

bool Setting::getAllowRestore() const { return mAllowRestore; }

bool Setting::getExportable() const { return mExportable; }

QVariant Setting::getValue()
{
    if (mLoaded || mLoading)
        return currentValue();
    if (!DataManagerWrapper::instance()->getReady()) {
        qCWarning(hmiShared).noquote()
            << "Setting::getValue: Data manager not ready. key:" << mKey << currentValue();
        return currentValue();
    }
    const Stored stored = readStored();
    if (stored.error == Result::DM_SETTING_NOT_FOUND) {
        qCInfo(hmiShared).noquote()
            << "Setting::getValue: Setting not found in data manager. Set value to DataManager. key:" << mKey
            << currentValue();
        writeThrough(currentValue());
    } else if (stored.error != Result::DM_OK) {
        qCWarning(hmiShared).noquote()
            << "Setting::getValue: Retrieve setting failed. key:" << mKey << mValue;
        mValue = currentValue();
    } else if (!mInMemoryPrecedence || !mValue.isValid() || mValue == stored.value) {
        load(stored.value);
    } else {
        qCInfo(hmiShared).noquote()
            << "Setting::getValue: valid value precendence. Save to data manager. key:" << mKey << mValue;
        writeThrough(mValue);
    }
    return mValue;
}

QVariant Setting::getValueDefault() const { return mDefault; }

bool Setting::restoreDefault() { return !getAllowRestore() || setValue(getValueDefault()); }

void Setting::setAllowRestore(bool aAllowRestore)
{
    if (mAllowRestore == aAllowRestore)
        return;
    mAllowRestore = aAllowRestore;
    emit allowRestoreChanged();
}

bool Setting::setValue(const QVariant& aValue)
{
    if (mLoaded && aValue == mValue)
        return true;
    if (!accepts(aValue)) {
        qCWarning(hmiShared).noquote()
            << "Setting::setValue: Could not convert new value to settings type:" << int(mType) << aValue;
        return false;
    }
    const QVariant value = converted(aValue);
    if (mLoaded && value == mValue)
        return true;
    const bool isStoredNow = DataManagerWrapper::instance()->getReady() && writeStored(value);
    if (!isStoredNow)
        qCWarning(hmiShared).noquote()
            << "Setting::setValue: Failed to save value to data manager. key:" << mKey << value;
    mValue = value;
    // A first value that could be stored is no change: nobody has read another one.
    const bool isChange = mLoaded || !isStoredNow;
    mLoaded = mLoaded || isStoredNow;
    if (isChange)
        emit valueChanged(value);
    return isStoredNow;
}

void Setting::onDataManagerReadyChanged()
{
    if (!DataManagerWrapper::instance()->getReady())
        return;
    const QVariant value = loadAndTell();
    qCDebug(hmiShared).noquote() << "Setting::dataManagerReadyChanged. Get value. key:" << mKey << value;
}

/** What was served so far stood in for a value that could not be read. */
QVariant Setting::loadAndTell()
{
    const QVariant served = currentValue();
    QVariant value = getValue();
    if (value != served)
        emit valueChanged(value);
    return value;
}

void Setting::onUserProfileChanged(const QString&)
{
    mLoaded = false;
    mValue = QVariant();
    emit valueChanged(mValue);
}

void Setting::onStoredValueChanged()
{
    if (mWriting || mLoading || !isStored())
        return;
    if (!mLoaded) {
        loadAndTell();
        return;
    }
    const Stored stored = readStored();
    if (stored.error == Result::DM_OK)
        takeStored(stored.value);
    else if (stored.error == Result::DM_SETTING_NOT_FOUND)
        takeStored(accepts(mDefault) ? converted(mDefault) : mDefault);
}

void Setting::load(const QVariant& aValue)
{
    mValue = aValue;
    mLoaded = true;
}

Setting::Stored Setting::readStored() const
{
    const Getter getter = findGetter(mCategory, mType);
    if (!getter)
        return {Result::DM_ERROR, QVariant()};
    const std::unique_ptr<Result> result((DataManagerWrapper::instance()->*getter)(mKey));
    return {result->getError(), result->getValue()};
}

bool Setting::writeStored(const QVariant& aValue)
{
    const Setter setter = findSetter(mCategory);
    if (!setter)
        return false;
    const QScopedValueRollback<bool> writing(mWriting, true);
    const std::unique_ptr<Result> result((DataManagerWrapper::instance()->*setter)(mKey, aValue));
    return result->getError() == Result::DM_OK;
}

/** The value stands from now on, also when the store does not take it. */
void Setting::writeThrough(const QVariant& aValue)
{
    const QScopedValueRollback<bool> loading(mLoading, true);
    mValue = aValue;
    setValue(aValue);
    mLoaded = true;
}

bool Setting::accepts(const QVariant& aValue) const
{
    bool converts = false;
    switch (mType) {
    case SettingTypeBool:
        return aValue.canConvert<bool>();
    case SettingTypeInt:
        return convertsToInt(aValue);
    case SettingTypeDouble:
        aValue.toDouble(&converts);
        return converts;
    case SettingTypeString:
        return aValue.canConvert<QString>() && isStorable(aValue.toString());
    case SettingTypeByteArray:
        return aValue.canConvert<QByteArray>();
    case SettingTypeObject:
        break;
    }
    return false;
}

/** The store tells types apart, and a number of QML or JSON is a double. */
QVariant Setting::converted(const QVariant& aValue) const
{
    switch (mType) {
    case SettingTypeBool:
        return aValue.toBool();
    case SettingTypeInt:
        return aValue.toInt();
    case SettingTypeDouble:
        return aValue.toDouble();
    case SettingTypeString:
        return aValue.toString();
    case SettingTypeByteArray:
        return aValue.toByteArray();
    case SettingTypeObject:
        break;
    }
    return aValue;
}

void Setting::takeStored(const QVariant& aValue)
{
    if (mValue == aValue)
        return;
    mValue = aValue;
    emit valueChanged(aValue);
}

} // namespace Hmi::Shared
