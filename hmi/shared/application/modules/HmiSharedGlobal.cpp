#include <hmi/shared/application/modules/HmiSharedGlobal.h>

#include <QDateTime>
#include <QLocale>
#include <QQmlEngine>

#include <hmi/shared/application/modules/PagePrintManager.h>

namespace Hmi::Shared {

HmiSharedGlobal::HmiSharedGlobal(QQmlEngine*, QJSEngine*)
{
    QQmlEngine::setObjectOwnership(getConfigs(), QQmlEngine::CppOwnership);
    mCollator.setNumericMode(true);
}

QString HmiSharedGlobal::getSettingsFileName() const { return QStringLiteral("krvx_settings.json"); }

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

} // namespace Hmi::Shared
