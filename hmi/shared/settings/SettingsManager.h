#pragma once

#include <QJsonObject>
#include <QList>
#include <QMultiHash>
#include <QPointer>
#include <QQmlPropertyMap>
#include <QString>
#include <QVariant>
#include <QVector>
#include <utility>

#include <hmi/core/foundation/InstanceTracker.h>
#include <hmi/shared/settings/Setting.h>
#include <hmi/shared/units/DateTimeFormat.h>

class QJSEngine;
class QQmlEngine;

namespace Hmi::Shared {

/**
 * Every setting, published to QML as the property of its name:
 *
 *     Text { text: SettingsManager.timeFormat.value }
 *
 * Assigning to the property itself changes nothing; the setting's value is what takes one.
 *
 * One object a process, for native code and QML as SingletonCppQml describes it: an engine that asked for it
 * owns it. The manager owns the settings. A setting that it refuses is deleted, so whoever hands one in has
 * nothing to clean up; refusals are warnings. A published setting follows what other writers store under its
 * key. Main thread only.
 */
class Q_DECL_EXPORT SettingsManager : public QQmlPropertyMap
{
    Q_OBJECT

public:
    static constexpr QLatin1String FirstBootName = latin1Literal("firstBoot");
    static constexpr QLatin1String VersionName = latin1Literal("version");
    static constexpr QLatin1String VersionPreviousName = latin1Literal("versionPrevious");

    /** The generation of the stored settings; the last one is the current. */
    enum SettingVersion { VersionZero, VersionOne, VersionTwo, VersionThree };
    Q_ENUM(SettingVersion)

    ~SettingsManager() override;

    /** Has the first-boot flag and the versions among its settings, also after clear(). */
    static SettingsManager* instance();
    /** The provider for qmlRegisterSingletonType(): hands instance() to the engine, which then owns it. */
    static QObject* registerInstance(QQmlEngine* aEngine, QJSEngine* aScriptEngine);

    /**
     * Publishes the settings that the library needs, once: a further call does nothing until the manager was
     * cleared or deleted. The hosting application calls it at start-up, when the data manager was started and
     * the theme registered. A locale setting that is published already decides the defaults; there is a
     * SettingLocale otherwise.
     */
    static void addSharedSettings();

    /**
     * Gives the active profile and every setting that allows it the defaults, protected ones aside. True when
     * all of that succeeded.
     */
    Q_INVOKABLE bool restoreSettingsDefaults();

    /** False, and deleted, when the name is taken or the name or key is empty. */
    bool addSetting(Setting* aSetting);
    void addSettings(const QList<Setting*>& aSettings);
    /**
     * Puts the setting in the place of the one with its name, which is deleted. False, and the new one
     * deleted, when there is none, or when that is no user setting and the new one is not global.
     */
    bool overrideSetting(Setting* aSetting);

    /** Null, after a warning, when there is none. */
    Setting* getSetting(const QString& aName) const;
    /** Invalid, after a warning, when there is no such setting. */
    QVariant getSettingValue(const QString& aName) const;

    /**
     * Adds name and value of each exportable setting. JSON has no bytes: a byte array is the text that it is
     * in UTF-8, and bytes that are none do not come back.
     */
    void toJson(QJsonObject& aObject) const;
    /**
     * Sets the settings that the object has members for, in one transaction. True when the last of them was
     * stored, or when there was none; an unknown member is a warning.
     */
    bool setValuesFromJson(const QJsonObject& aObject);

    /** Removes and deletes all settings. */
    void clear();

signals:
    void restoreSettingsCalled();

protected:
    QVariant updateValue(const QString& aKey, const QVariant& aInput) override;

private:
    using KeptValue = std::pair<QPointer<Setting>, QVariant>;

    SettingsManager();

    Setting* findSetting(const QString& aName) const;
    bool publish(Setting* aSetting);
    void addBuiltInSettings();
    QVector<KeptValue> valuesToKeep() const;
    bool restoreSetting(Setting& aSetting);

    void requestChangeSignals();
    void follow(Setting& aSetting);
    void unfollow(Setting& aSetting);
    void onStoredSettingChanged(Setting::SettingCategory aCategory, const QString& aKey);

    static Core::InstanceTracker sTracker;
    static bool sSharedSettingsAdded;

    bool mInitialized = false;
    QMultiHash<QString, Setting*> mFollowed; ///< by key, those that other writers may change
};

} // namespace Hmi::Shared
