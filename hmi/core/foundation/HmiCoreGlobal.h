#pragma once

#include <QObject>

#include <hmi/core/foundation/HmiCoreConfigs.h>
#include <hmi/core/foundation/SingletonCppQml.h>

namespace Hmi::Core {

/** The core's global object, "HmiCore" in QML: the configuration and how much of the display the application
 * has. */
class Q_DECL_EXPORT HmiCoreGlobal : public SingletonCppQml<HmiCoreGlobal>
{
    Q_OBJECT
    Q_PROPERTY(Hmi::Core::HmiCoreConfigs* configs READ getConfigs CONSTANT)
    Q_PROPERTY(ApplicationViewMode applicationViewMode READ getApplicationViewMode WRITE
                   setApplicationViewMode NOTIFY applicationViewModeChanged)
    friend class SingletonCppQml<HmiCoreGlobal>;

public:
    /** The part of the display that the application's view takes. */
    enum ApplicationViewMode {
        ApplicationViewModeFull,  ///< the whole display
        ApplicationViewModeSplit, ///< a part, beside another application
        ApplicationViewModeHidden ///< nothing: the application runs in the background
    };
    Q_ENUM(ApplicationViewMode)

    /** Owned by the core, also when QML reads it. */
    HmiCoreConfigs* getConfigs() const;

    ApplicationViewMode getApplicationViewMode() const { return mApplicationViewMode; }
    void setApplicationViewMode(ApplicationViewMode aApplicationViewMode);

signals:
    void applicationViewModeChanged();

private:
    HmiCoreGlobal(QQmlEngine* aEngine, QJSEngine* aScriptEngine);

    ApplicationViewMode mApplicationViewMode = ApplicationViewModeFull;
};

} // namespace Hmi::Core
