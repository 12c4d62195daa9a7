#include <hmi/shared/settings/SettingsManager.h>

#include <QJsonValue>
#include <memory>

#include <hmi/shared/application/LoggingCategory.h>
#include <hmi/shared/settings/DataManagerWrapper.h>
#include <hmi/shared/settings/SettingLocale.h>
#include <hmi/shared/settings/SharedSettings.h>
#include <platform/data-manager/Value.h>

namespace Hmi::Shared {

using Result = std::unique_ptr<DataManagerReturnTypeQml>;

static const QString sOwner = QStringLiteral("SettingsManager");

Core::InstanceTracker SettingsManager::sTracker;
bool SettingsManager::sSharedSettingsAdded = false;

static bool warnAbout(const char* aFormat, const QString& aName)
{
    qCWarning(hmiShared, aFormat, qUtf8Printable(aName));
    return false;
}

SettingsManager::SettingsManager() : QQmlPropertyMap(this, nullptr)
{
    const DataManagerWrapper* manager = DataManagerWrapper::instance();
    connect(manager, &DataManagerWrapper::readyChanged, this, &SettingsManager::requestChangeSignals);
    connect(manager, &DataManagerWrapper::userSettingChanged, this,
            [this](const QString& aKey) { onStoredSettingChanged(Setting::SettingCategoryUser, aKey); });
    connect(manager, &DataManagerWrapper::globalSettingChanged, this,
            [this](const QString& aKey) { onStoredSettingChanged(Setting::SettingCategoryGlobal, aKey); });
}

SettingsManager::~SettingsManager()
{
    sSharedSettingsAdded = false;
    if (sTracker.getInstance() == this)
        sTracker.setInstance(nullptr);
}

SettingsManager* SettingsManager::instance()
{
    if (!sTracker.getInstance()) {
        Core::InstanceTracker::requireMainThread();
        sTracker.setInstance(new SettingsManager);
        sTracker.setOwnedByQml(false);
    }
    SettingsManager* manager = static_cast<SettingsManager*>(sTracker.getInstance());
    manager->addBuiltInSettings();
    return manager;
}

QObject* SettingsManager::registerInstance(QQmlEngine*, QJSEngine*)
{
    SettingsManager* manager = instance();
    sTracker.setOwnedByQml(true);
    return manager;
}

void SettingsManager::addBuiltInSettings()
{
    if (mInitialized)
        return;
    mInitialized = true;
    const auto make = [](const char* aKey, const QString& aName, Setting::SettingType aType,
                         const QVariant& aDefault, bool aIsKept) {
        auto* setting = new Setting(QLatin1String(aKey), aName, aType, aDefault, !aIsKept,
                                    Setting::SettingCategoryGlobal);
        setting->setInMemoryPrecedence(true);
        setting->setAllowRestore(!aIsKept);
        return setting;
    };
    Setting* firstBoot = make("SettingsFirstBoot", FirstBootName, Setting::SettingTypeBool, true, true);
    Setting* previous =
        make("SettingsVersionPrevious", VersionPreviousName, Setting::SettingTypeInt, int(VersionZero), true);
    Setting* version =
        make("SettingsVersion", VersionName, Setting::SettingTypeInt, int(VersionThree), false);
    // Read first: the same version is not written at every start.
    version->getValue();
    version->setValue(int(VersionThree));
    if (firstBoot->getValue().toBool())
        previous->setValue(int(VersionThree));
    addSettings({firstBoot, previous, version});
}

void SettingsManager::addSharedSettings()
{
    SettingsManager* manager = instance();
    if (sSharedSettingsAdded)
        return;
    sSharedSettingsAdded = true;
    auto* locale = qobject_cast<SettingLocale*>(manager->findSetting(QStringLiteral("locale")));
    QList<Setting*> settings;
    if (!locale)
        settings.append(locale = new SettingLocale);
    manager->addSettings(settings + SharedSettings::create(locale->localeValue()));
}

bool SettingsManager::restoreSettingsDefaults()
{
    DataManagerWrapper* manager = DataManagerWrapper::instance();
    const QVector<KeptValue> kept = valuesToKeep();
    const Result reset(manager->resetActiveUserProfile());
    bool succeeded = reset->getError() == DataManagerReturnTypeQml::DM_OK;
    manager->beginBatch();
    for (const auto& [setting, value] : kept)
        if (setting) {
            setting->onStoredValueChanged();
            setting->setValue(value);
        }
    const QStringList names = keys();
    for (const QString& name : names) {
        Setting* setting = findSetting(name);
        if (setting && !restoreSetting(*setting))
            succeeded = false;
    }
    manager->commitBatch();
    emit restoreSettingsCalled();
    return succeeded;
}

/** The reset of a profile erases also what restoring may not touch. */
QVector<SettingsManager::KeptValue> SettingsManager::valuesToKeep() const
{
    QVector<KeptValue> kept;
    for (Setting* setting : mFollowed)
        if (setting->getCategory() == Setting::SettingCategoryUser && !setting->getAllowRestore())
            kept.append({setting, setting->getValue()});
    return kept;
}

bool SettingsManager::restoreSetting(Setting& aSetting)
{
    if (!aSetting.getAllowRestore() || aSetting.getCategory() == Setting::SettingCategoryProtected ||
        aSetting.restoreDefault())
        return true;
    qCDebug(hmiShared, "Failed to restore setting %s", qUtf8Printable(aSetting.getName()));
    return false;
}

bool SettingsManager::addSetting(Setting* aSetting)
{
    if (!aSetting)
        return false;
    if (!value(aSetting->getName()).isValid())
        return publish(aSetting);
    const bool isPublished = findSetting(aSetting->getName()) == aSetting;
    warnAbout(
        "A setting with name %s has already been added to SettingsManager. Please choose a unique name.",
        aSetting->getName());
    if (!isPublished)
        delete aSetting;
    return false;
}

void SettingsManager::addSettings(const QList<Setting*>& aSettings)
{
    for (Setting* setting : aSettings)
        addSetting(setting);
}

bool SettingsManager::overrideSetting(Setting* aSetting)
{
    std::unique_ptr<Setting> replacement(aSetting);
    if (!replacement)
        return false;
    Setting* present = findSetting(replacement->getName());
    if (!present)
        return warnAbout("Cannot find setting with name %s.", replacement->getName());
    if (present == aSetting) {
        Q_UNUSED(replacement.release())
        return true;
    }
    if (present->getCategory() != Setting::SettingCategoryUser &&
        replacement->getCategory() != Setting::SettingCategoryGlobal) {
        qCWarning(hmiShared, "Cannot override a global setting with a user setting.");
        return false;
    }
    if (!publish(replacement.release()))
        return false;
    unfollow(*present);
    delete present;
    return true;
}

bool SettingsManager::publish(Setting* aSetting)
{
    const QString name = aSetting->getName();
    if (name.isEmpty() || aSetting->getKey().isEmpty()) {
        qCWarning(hmiShared, "The given setting is missing required name or key values.");
        delete aSetting;
        return false;
    }
    aSetting->setParent(this);
    const QVariant value = QVariant::fromValue(aSetting);
    insert(name, value);
    follow(*aSetting);
    emit valueChanged(name, value);
    return true;
}

Setting* SettingsManager::findSetting(const QString& aName) const { return value(aName).value<Setting*>(); }

Setting* SettingsManager::getSetting(const QString& aName) const
{
    Setting* setting = findSetting(aName);
    if (!setting)
        warnAbout("Cannot find setting with name %s.", aName);
    return setting;
}

QVariant SettingsManager::getSettingValue(const QString& aName) const
{
    Setting* setting = getSetting(aName);
    return setting ? setting->getValue() : QVariant();
}

/** QVariant's own text of bytes would end at the first NUL. */
static QJsonValue jsonOf(const QVariant& aValue)
{
    const QByteArray bytes = aValue.toByteArray();
    return aValue.type() == QVariant::ByteArray ? DataManager::textOfUtf8(bytes.constData(), bytes.size())
                                                : QJsonValue::fromVariant(aValue);
}

void SettingsManager::toJson(QJsonObject& aObject) const
{
    const QStringList names = keys();
    for (auto name = names.crbegin(); name != names.crend(); ++name) {
        Setting* setting = findSetting(*name);
        if (setting && setting->getExportable())
            aObject.insert(*name, jsonOf(setting->getValue()));
    }
}

bool SettingsManager::setValuesFromJson(const QJsonObject& aObject)
{
    DataManagerWrapper* manager = DataManagerWrapper::instance();
    bool succeeded = true;
    manager->beginBatch();
    for (auto member = aObject.constBegin(); member != aObject.constEnd(); ++member) {
        if (Setting* setting = findSetting(member.key()))
            succeeded = setting->setValue(member.value().toVariant());
        else
            warnAbout("No setting found with key %s", member.key());
    }
    manager->commitBatch();
    return succeeded;
}

void SettingsManager::clear()
{
    if (!mInitialized)
        return;
    const QStringList names = keys();
    for (const QString& name : names) {
        if (Setting* setting = findSetting(name))
            unfollow(*setting);
        QQmlPropertyMap::clear(name);
    }
    qDeleteAll(findChildren<Setting*>(QString(), Qt::FindDirectChildrenOnly));
    sSharedSettingsAdded = false;
    mInitialized = false;
}

QVariant SettingsManager::updateValue(const QString& aKey, const QVariant&) { return value(aKey); }

void SettingsManager::requestChangeSignals()
{
    DataManagerWrapper* manager = DataManagerWrapper::instance();
    if (manager->getReady())
        Result(manager->requestChangeSignalsForSettings(mFollowed.uniqueKeys(), sOwner));
}

/** Nobody announces changes of protected settings. */
void SettingsManager::follow(Setting& aSetting)
{
    if (!aSetting.isStored() || aSetting.getCategory() == Setting::SettingCategoryProtected)
        return;
    mFollowed.insert(aSetting.getKey(), &aSetting);
    DataManagerWrapper* manager = DataManagerWrapper::instance();
    if (manager->getReady())
        Result(manager->requestChangeSignalsForSetting(aSetting.getKey(), sOwner));
}

void SettingsManager::unfollow(Setting& aSetting)
{
    const QString key = aSetting.getKey();
    DataManagerWrapper* manager = DataManagerWrapper::instance();
    if (mFollowed.remove(key, &aSetting) > 0 && !mFollowed.contains(key) && manager->getReady())
        Result(manager->releaseChangeSignalsForSetting(key, sOwner));
}

void SettingsManager::onStoredSettingChanged(Setting::SettingCategory aCategory, const QString& aKey)
{
    const QList<Setting*> settings = mFollowed.values(aKey);
    for (Setting* setting : settings)
        // A handler of one setting may have replaced another.
        if (mFollowed.contains(aKey, setting) && setting->getCategory() == aCategory)
            setting->onStoredValueChanged();
}

} // namespace Hmi::Shared
