#pragma once

#include <QCollator>
#include <QString>

#include <hmi/core/foundation/SingletonCppQml.h>
#include <hmi/shared/application/HmiSharedConfigs.h>

namespace Hmi::Shared {

/**
 * The library's global object, "HmiShared" in QML: the configuration, the features that it switches on, and
 * what every screen needs and no other class offers. Created after the configuration was loaded. Main thread
 * only.
 */
class Q_DECL_EXPORT HmiSharedGlobal : public Core::SingletonCppQml<HmiSharedGlobal>
{
    Q_OBJECT
    Q_PROPERTY(Hmi::Shared::HmiSharedConfigs* configs READ getConfigs CONSTANT)
    Q_PROPERTY(QString settingsFileName READ getSettingsFileName CONSTANT)
    Q_PROPERTY(bool dataManagerEnabled READ getDataManagerEnabled CONSTANT)
    Q_PROPERTY(bool signalServiceEnabled READ getSignalServiceEnabled CONSTANT)
    Q_PROPERTY(bool systemUpdateEnabled READ getSystemUpdateEnabled CONSTANT)
    Q_PROPERTY(bool voiceManagerEnabled READ getVoiceManagerEnabled CONSTANT)
    friend class Core::SingletonCppQml<HmiSharedGlobal>;

public:
    /** Stays natively owned: no QML engine deletes it. */
    HmiSharedConfigs* getConfigs() const { return HmiSharedConfigs::instance(); }

    /** The file of exported settings, without its folder. */
    QString getSettingsFileName() const;

    bool getDataManagerEnabled() const { return getConfigs()->getDataManagerEnabled(); }
    bool getSignalServiceEnabled() const { return getConfigs()->getSignalServiceEnabled(); }
    bool getSystemUpdateEnabled() const { return getConfigs()->getSystemUpdateEnabled(); }
    bool getVoiceManagerEnabled() const { return getConfigs()->getVoiceManagerEnabled(); }

    /**
     * The order of two texts for a reader of the default locale, numbers within them by value: below, above
     * or equal to 0 as the first stands before, behind or beside the second.
     */
    Q_INVOKABLE int localeAwareCompare(const QString& aFirst, const QString& aSecond);

    /**
     * Prints the window, or an item, through PagePrintManager to a file named after the current local time.
     * Returns its path, or nothing when the print could not be started; PagePrintManager tells how it ended.
     */
    Q_INVOKABLE QString saveScreenshot(QObject* aWindow);

private:
    HmiSharedGlobal(QQmlEngine* aEngine, QJSEngine* aScriptEngine);

    QCollator mCollator;
};

} // namespace Hmi::Shared
