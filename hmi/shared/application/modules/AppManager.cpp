#include <hmi/shared/application/modules/AppManager.h>

#include <algorithm>

namespace Hmi::Shared {

QVector<AppManager::App> AppManager::smDeclaredApps;

static QVariantMap toMap(const AppManager::App& aApp)
{
    return {{QStringLiteral("name"), aApp.name},
            {QStringLiteral("title"), aApp.title},
            {QStringLiteral("page"), aApp.page}};
}

AppManager::AppManager(QQmlEngine*, QJSEngine*)
{
    for (const App& app : qAsConst(smDeclaredApps))
        addApp(app.name, app.title, app.page);
}

void AppManager::declareApps(const QVector<App>& aApps) { smDeclaredApps = aApps; }

QVariantList AppManager::getApps() const
{
    QVariantList apps;
    for (const App& app : mApps)
        apps.append(toMap(app));
    return apps;
}

QVariantMap AppManager::getCurrentApp() const { return toMap(mApps.value(mCurrent)); }

bool AppManager::addApp(const QString& aName, const QString& aTitle, const QString& aPage)
{
    if (aName.isEmpty() || indexOf(aName) >= 0) {
        qWarning("The app name \"%s\" is empty or taken; the app is not added.", qPrintable(aName));
        return false;
    }
    mApps.append({aName, aTitle, aPage});
    emit appsChanged();
    return true;
}

bool AppManager::show(const QString& aName)
{
    const int index = indexOf(aName);
    if (index < 0) {
        qWarning("There is no app \"%s\" to show.", qPrintable(aName));
        return false;
    }
    if (index != mCurrent) {
        mCurrent = index;
        emit currentAppChanged();
    }
    return true;
}

int AppManager::indexOf(const QString& aName) const
{
    const auto app =
        std::find_if(mApps.cbegin(), mApps.cend(), [&](const App& other) { return other.name == aName; });
    return app == mApps.cend() ? -1 : static_cast<int>(std::distance(mApps.cbegin(), app));
}

} // namespace Hmi::Shared
