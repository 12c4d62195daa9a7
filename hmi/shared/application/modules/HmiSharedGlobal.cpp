#include <hmi/shared/application/modules/HmiSharedGlobal.h>

#include <QDir>
#include <QMetaObject>
#include <QMetaType>
#include <QQmlEngine>

#include <hmi/core/foundation/PerfEventPolicyBase.h>
#include <hmi/core/language/LanguageManager.h>
#include <hmi/shared/application/modules/PagePrintManager.h>
#include <hmi/shared/services/SystemUpdateManager.h>
#include <hmi/shared/settings/DataManagerWrapper.h>
#include <hmi/shared/settings/SettingsFile.h>
#include <hmi/shared/settings/SettingsManager.h>

namespace Hmi::Shared {

HmiSharedGlobal::HmiSharedGlobal(QQmlEngine*, QJSEngine*)
{
    QQmlEngine::setObjectOwnership(getConfigs(), QQmlEngine::CppOwnership);
    QQmlEngine::setObjectOwnership(&mEnvironmentManager, QQmlEngine::CppOwnership);
    // QML calls no function whose result it does not know.
    qRegisterMetaType<QLocale::Language>();
    mCollator.setNumericMode(true);
}

/** A marker of start-up or shutdown, for who measures these. */
static void mark(Core::PerfEventPolicyBase* aPerfEventPolicy, const QString& aEventName)
{
    if (aPerfEventPolicy)
        aPerfEventPolicy->raiseEvent(aEventName);
}

void HmiSharedGlobal::startUp(const QHash<QString, QString>& aDataManagerParameters,
                              Core::PerfEventPolicyBase* aPerfEventPolicy)
{
    DataManagerWrapper::instance()->initialize(aDataManagerParameters);
    SettingsManager::addSharedSettings();
    if (!getSystemUpdateEnabled())
        return;
    mark(aPerfEventPolicy, QStringLiteral("SystemUpdateManagerInitStart"));
    SystemUpdateManager::instance()->init();
    mark(aPerfEventPolicy, QStringLiteral("SystemUpdateManagerInitEnd"));
}

void HmiSharedGlobal::startUpAsync(const QHash<QString, QString>& aDataManagerParameters)
{
    DataManagerWrapper::instance()->startupAsync(aDataManagerParameters);
}

void HmiSharedGlobal::shutDown(Core::PerfEventPolicyBase* aPerfEventPolicy)
{
    mark(aPerfEventPolicy, QStringLiteral("DataManagerDeInitStart"));
    DataManagerWrapper::instance()->shutdown();
    mark(aPerfEventPolicy, QStringLiteral("DataManagerDeInitEnd"));
}

QString HmiSharedGlobal::getSettingsFileName() const { return QStringLiteral("krvx_settings.json"); }

bool HmiSharedGlobal::exportSettings(const QString& aFolder)
{
    return SettingsFile::save(QDir(aFolder).filePath(getSettingsFileName()));
}

bool HmiSharedGlobal::importSettings(const QString& aFolder)
{
    return SettingsFile::load(QDir(aFolder).filePath(getSettingsFileName()));
}

int HmiSharedGlobal::localeAwareCompare(const QString& aFirst, const QString& aSecond)
{
    const QLocale locale;
    if (mCollator.locale() != locale)
        mCollator.setLocale(locale);
    return mCollator.compare(aFirst, aSecond);
}

QString HmiSharedGlobal::saveScreenshot(QObject* aWindow)
{
    const QString time = QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd_HH_mm_ss_zzz"));
    const QString fileName = QStringLiteral("screenshot-") + time + QStringLiteral(".png");
    PagePrintManager* printer = PagePrintManager::instance();
    return printer->print(aWindow, fileName) ? printer->getFilePath(fileName) : QString();
}

QString HmiSharedGlobal::formatDateTime(const QDateTime& aDateTime, const QString& aFormat, bool aUseOffset,
                                        int aOffsetUtc, const QString& aLanguage)
{
    if (!aDateTime.isValid())
        return QString();
    const QLocale& locale = findLocale(aLanguage);
    return locale.toString(aUseOffset ? aDateTime.toUTC().addSecs(aOffsetUtc) : aDateTime, aFormat);
}

QLocale::Language HmiSharedGlobal::convertLanguage(const QString& aLanguage) const
{
    return languageOf(aLanguage);
}

qint64 HmiSharedGlobal::daysToToday(const QDate& aDate, int aOffsetUtc) const
{
    return aDate.daysTo(QDateTime::currentDateTimeUtc().toOffsetFromUtc(aOffsetUtc).date());
}

void HmiSharedGlobal::setUtcOffset(int aUtcOffset)
{
    if (mUtcOffset == aUtcOffset)
        return;
    mUtcOffset = aUtcOffset;
    QMetaObject::invokeMethod(this, &HmiSharedGlobal::utcOffsetChanged, Qt::QueuedConnection);
}

/** Finding a locale takes half as long as formatting with it, and screens format again and again in one. */
const QLocale& HmiSharedGlobal::findLocale(const QString& aLanguage)
{
    const Core::LanguageManager& manager = *Core::LanguageManager::instance();
    const QString language = aLanguage.isEmpty() ? manager.getCurrentLanguage() : aLanguage;
    if (mLocaleIsCurrent && language == mLocaleLanguage)
        return mLocale;
    const auto id = convertLanguage(language.isEmpty() ? manager.getLanguageCode() : language);
    // What Qt takes for any language follows the default locale, which may become another.
    mLocaleIsCurrent = id != QLocale::AnyLanguage;
    mLocale = QLocale(id, QLocale::AnyCountry);
    mLocaleLanguage = language;
    return mLocale;
}

} // namespace Hmi::Shared
