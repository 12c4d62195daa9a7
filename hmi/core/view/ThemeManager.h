#pragma once

#include <QString>
#include <QStringList>
#include <functional>

#include <hmi/core/foundation/SingletonCppQml.h>

namespace Hmi::Core {

/**
 * Switches the theme of the HMI. A theme is a compiled resource bundle, "<name>.rcc", in the configured
 * themes path; it is shown by registering the bundle. The new bundle is registered before the old one goes,
 * so that there is a theme at every moment, and a theme that cannot be registered leaves the old one in
 * place.
 *
 * The bundle of the last theme stays registered when the manager goes away. Main thread only.
 */
class Q_DECL_EXPORT ThemeManager : public SingletonCppQml<ThemeManager>
{
    Q_OBJECT
    Q_PROPERTY(QString currentTheme READ getCurrentTheme WRITE setCurrentTheme NOTIFY currentThemeChanged)
    Q_PROPERTY(QStringList availableThemes READ getAvailableThemes CONSTANT)
    friend class SingletonCppQml<ThemeManager>;

public:
    /** Whoever registers bundles. Both are called with the bundle's file name, such as "night.rcc". */
    struct Registrar
    {
        std::function<bool(const QString& aFileName)> registerBundle;
        std::function<bool(const QString& aFileName)> unregisterBundle;
    };

    ThemeManager(const QString& aThemesPath, const Registrar& aRegistrar);

    /** The name of the theme shown; empty until one was set. */
    QString getCurrentTheme() const { return mCurrentTheme; }

    /**
     * Shows the theme, or none for an empty name. False, with one warning and the old theme in place, when
     * its bundle cannot be registered or the name is a path. A name outside availableThemes is tried as well:
     * the registrar may look in further places.
     */
    Q_INVOKABLE bool setCurrentTheme(const QString& aTheme);

    /** The themes found in the themes path when the manager was created, sorted. */
    QStringList getAvailableThemes() const { return mAvailableThemes; }

signals:
    void currentThemeChanged();

private:
    ThemeManager(QQmlEngine* aEngine, QJSEngine* aScriptEngine);

    bool registerTheme(const QString& aTheme) const;
    void unregisterTheme(const QString& aTheme) const;

    const QString mThemesPath;
    const Registrar mRegistrar;
    const QStringList mAvailableThemes;
    QString mCurrentTheme;
};

} // namespace Hmi::Core
