#pragma once

#include <QString>
#include <QVariantList>
#include <QVariantMap>
#include <QVector>

#include <hmi/core/foundation/SingletonQml.h>

namespace Hmi::Shared {

/**
 * The apps of the product and the one that is shown. Every QML engine has its own manager, so that two
 * displays show different apps; each begins with the apps that native code declared. A screen binds to
 * currentApp:
 *
 *     Loader { source: AppManager.currentApp.page }
 *
 * Main thread only.
 */
class Q_DECL_EXPORT AppManager : public Core::SingletonQml<AppManager>
{
    Q_OBJECT
    Q_PROPERTY(QVariantList apps READ getApps NOTIFY appsChanged)
    Q_PROPERTY(QVariantMap currentApp READ getCurrentApp NOTIFY currentAppChanged)
    friend class Core::SingletonQml<AppManager>;

public:
    struct App
    {
        QString name;
        /** What the user reads. */
        QString title;
        /** What the product's screens load, usually the URL of a QML file. */
        QString page;
    };

    /** Sets the apps with which the managers of engines created afterwards begin. Called at start-up. */
    static void declareApps(const QVector<App>& aApps);

    /** In the order added, each with its "name", "title" and "page". */
    QVariantList getApps() const;

    /** As one entry of getApps(); all three texts are empty until an app was shown. */
    QVariantMap getCurrentApp() const;

    /** False, after a warning, when the name is empty or taken. */
    Q_INVOKABLE bool addApp(const QString& aName, const QString& aTitle, const QString& aPage);

    /** Makes the app the current one. False, after a warning and with no change, when it is unknown. */
    Q_INVOKABLE bool show(const QString& aName);

signals:
    void appsChanged();
    void currentAppChanged();

private:
    AppManager(QQmlEngine* aEngine, QJSEngine* aScriptEngine);

    int indexOf(const QString& aName) const;

    static QVector<App> smDeclaredApps;

    QVector<App> mApps;
    int mCurrent = -1;
};

} // namespace Hmi::Shared
