#pragma once

#include <QCollator>
#include <QDate>
#include <QDateTime>
#include <QHash>
#include <QLocale>
#include <QString>

#include <hmi/core/foundation/SingletonCppQml.h>
#include <hmi/shared/application/HmiSharedConfigs.h>
#include <hmi/shared/services/EnvironmentManager.h>
#include <hmi/shared/units/DateTimeFormat.h>

namespace Hmi::Core {
class PerfEventPolicyBase;
}

namespace Hmi::Shared {

/**
 * The library's global object, "HmiShared" in QML: the configuration, the features that it switches on, and
 * what every screen needs and no other class offers, such as dates and times as text. Created after the
 * configuration was loaded. Main thread only.
 */
class Q_DECL_EXPORT HmiSharedGlobal : public Core::SingletonCppQml<HmiSharedGlobal>, public DateTimeFormat
{
    Q_OBJECT
    Q_PROPERTY(Hmi::Shared::HmiSharedConfigs* configs READ getConfigs CONSTANT)
    Q_PROPERTY(Hmi::Shared::EnvironmentManager* environmentManager READ getEnvironmentManager CONSTANT)
    Q_PROPERTY(QString settingsFileName READ getSettingsFileName CONSTANT)
    Q_PROPERTY(bool dataManagerEnabled READ getDataManagerEnabled CONSTANT)
    Q_PROPERTY(bool signalServiceEnabled READ getSignalServiceEnabled CONSTANT)
    Q_PROPERTY(bool systemUpdateEnabled READ getSystemUpdateEnabled CONSTANT)
    Q_PROPERTY(bool voiceManagerEnabled READ getVoiceManagerEnabled CONSTANT)
    Q_PROPERTY(QString formatDate MEMBER FormatDate CONSTANT)
    Q_PROPERTY(QString formatDay MEMBER FormatDay CONSTANT)
    Q_PROPERTY(QString formatDayFull MEMBER FormatDayFull CONSTANT)
    Q_PROPERTY(QString formatDayMonthLongYear MEMBER FormatDayMonthLongYear CONSTANT)
    Q_PROPERTY(QString formatDayNumber MEMBER FormatDayNumber CONSTANT)
    Q_PROPERTY(QString formatHour24 MEMBER FormatHour24 CONSTANT)
    Q_PROPERTY(QString formatHourAmPm MEMBER FormatHourAmPm CONSTANT)
    Q_PROPERTY(QString formatHourMinute24 MEMBER FormatHourMinute24 CONSTANT)
    Q_PROPERTY(QString formatHourMinuteMeridian MEMBER FormatHourMinuteMeridian CONSTANT)
    Q_PROPERTY(QString formatLongYearMonthDay MEMBER FormatLongYearMonthDay CONSTANT)
    Q_PROPERTY(QString formatMonth MEMBER FormatMonth CONSTANT)
    Q_PROPERTY(QString formatMonthDayLongYear MEMBER FormatMonthDayLongYear CONSTANT)
    Q_PROPERTY(QString formatMonthDayYear MEMBER FormatMonthDayYear CONSTANT)
    Q_PROPERTY(QString formatMonthFull MEMBER FormatMonthFull CONSTANT)
    Q_PROPERTY(QString formatYearFull MEMBER FormatYearFull CONSTANT)
    /**
     * The offset from UTC, in seconds, at which the screens show times; 0 at first and after a reset. A new
     * value is read at once and announced from the event loop.
     */
    Q_PROPERTY(
        int utcOffset READ getUtcOffset WRITE setUtcOffset RESET resetUtcOffset NOTIFY utcOffsetChanged)
    friend class Core::SingletonCppQml<HmiSharedGlobal>;

public:
    /**
     * The library's start-up, after the core's: starts the data manager, at once or when the environment
     * manager ends its delay (the parameters stand above its configuration file), publishes the shared
     * settings, and lets the update manager follow its service, where the configuration enables that. The
     * policy, which may be null, is told "SystemUpdateManagerInitStart" and "SystemUpdateManagerInitEnd".
     */
    void startUp(const QHash<QString, QString>& aDataManagerParameters = {},
                 Core::PerfEventPolicyBase* aPerfEventPolicy = nullptr);
    /** Begins to start the data manager on another thread, which startUp() completes. */
    void startUpAsync(const QHash<QString, QString>& aDataManagerParameters = {});
    /**
     * Stops the data manager; every setting is on the medium then. The policy, which may be null, is told
     * "DataManagerDeInitStart" and "DataManagerDeInitEnd".
     */
    void shutDown(Core::PerfEventPolicyBase* aPerfEventPolicy);

    /** Stays natively owned: no QML engine deletes it. */
    HmiSharedConfigs* getConfigs() const { return HmiSharedConfigs::instance(); }

    /** The one environment manager; it goes with this object. */
    EnvironmentManager* getEnvironmentManager() { return &mEnvironmentManager; }

    /** The file of exported settings, without its folder. */
    QString getSettingsFileName() const;

    bool getDataManagerEnabled() const { return getConfigs()->getDataManagerEnabled(); }
    bool getSignalServiceEnabled() const { return getConfigs()->getSignalServiceEnabled(); }
    bool getSystemUpdateEnabled() const { return getConfigs()->getSystemUpdateEnabled(); }
    bool getVoiceManagerEnabled() const { return getConfigs()->getVoiceManagerEnabled(); }

    /** Writes the exportable settings to their file in the folder, whole or not at all. */
    Q_INVOKABLE bool exportSettings(const QString& aFolder);

    /**
     * Sets what that file of the folder holds, as SettingsManager::setValuesFromJson() does. A file that is
     * missing, too large or damaged changes nothing.
     */
    Q_INVOKABLE bool importSettings(const QString& aFolder);

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

    /**
     * The date and time in the pattern, in the given language or, when that is empty, in the one of
     * LanguageManager. A language that is not known here is left to QLocale, as QLocale::AnyLanguage.
     *
     * With aUseOffset it is the wall-clock time aOffsetUtc seconds east of UTC, and the pattern's "t" reads
     * "UTC". Otherwise it is the time as its own time zone or offset has it. Empty for a null or invalid one.
     */
    Q_INVOKABLE QString formatDateTime(const QDateTime& aDateTime, const QString& aFormat,
                                       bool aUseOffset = false, int aOffsetUtc = 0,
                                       const QString& aLanguage = QString());

    /** QLocale::AnyLanguage for a code that is not in the table of languages. */
    Q_INVOKABLE QLocale::Language convertLanguage(const QString& aLanguage) const;

    /** From the date to the day that it is now aOffsetUtc seconds east of UTC; positive for the past. */
    Q_INVOKABLE qint64 daysToToday(const QDate& aDate, int aOffsetUtc = 0) const;

    Q_INVOKABLE int getUtcOffset() const { return mUtcOffset; }
    void setUtcOffset(int aUtcOffset);
    void resetUtcOffset() { setUtcOffset(0); }

signals:
    void utcOffsetChanged();

private:
    HmiSharedGlobal(QQmlEngine* aEngine, QJSEngine* aScriptEngine);

    const QLocale& findLocale(const QString& aLanguage);

    EnvironmentManager mEnvironmentManager;
    QCollator mCollator;
    QLocale mLocale;               ///< of mLocaleLanguage
    QString mLocaleLanguage;       ///< empty: the system's
    bool mLocaleIsCurrent = false; ///< false for any language too, which follows the default locale
    int mUtcOffset = 0;
};

} // namespace Hmi::Shared
