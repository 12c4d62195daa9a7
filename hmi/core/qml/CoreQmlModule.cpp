#include <hmi/core/qml/CoreQmlModule.h>

#include <QList>
#include <QSize>
#include <QUrl>

#include <hmi/core/foundation/HmiCoreConfigs.h>
#include <hmi/core/foundation/HmiCoreGlobal.h>
#include <hmi/core/foundation/QmlRegistration.h>
#include <hmi/core/input/HighlightManager.h>
#include <hmi/core/input/KeyboardModelManager.h>
#include <hmi/core/input/SuggestionsManager.h>
#include <hmi/core/language/LanguageManager.h>
#include <hmi/core/language/StringRegistrationManager.h>
#include <hmi/core/models/ObjectListModelBase.h>
#include <hmi/core/resources/HandleDefaultsResource.h>
#include <hmi/core/view/ProcessLauncher.h>
#include <hmi/core/view/RestrictedModeManager.h>
#include <hmi/core/view/RestrictedModePolicy.h>
#include <hmi/core/view/ThemeManager.h>

namespace Hmi::Core {

static bool registerTypes()
{
    const char* uri = "Hmi.Core";
    registerQmlType<HandleDefaultsResource>(uri, "HandleDefaultsResource");
    qRegisterMetaType<HmiCoreGlobal::ApplicationViewMode>("Hmi::Core::HmiCoreGlobal::ApplicationViewMode");
    // For the display resolutions of HmiCoreConfigs.
    qRegisterMetaType<QList<QSize>>();

    registerQmlSingleton<HighlightManager>(uri, "HighlightManager");
    registerQmlSingleton<HmiCoreGlobal>(uri, "HmiCore");
    registerQmlSingleton<KeyboardModelManager>(uri, "KeyboardModelManager");
    registerQmlSingleton<LanguageManager>(uri, "LanguageManager");
    registerQmlSingleton<ProcessLauncher>(uri, "ProcessLauncher");
    registerQmlSingleton<RestrictedModeManager>(uri, "RestrictedModeManager");
    registerQmlSingleton<SuggestionsManager>(uri, "SuggestionsManager");
    registerQmlSingleton<StringRegistrationManager>(uri, "StringRegistrationManager");
    registerQmlSingleton<ThemeManager>(uri, "ThemeManager");
    registerQmlFileSingleton(QUrl(QStringLiteral("qrc:///Hmi/Core/ObjectFactory.qml")), uri, "ObjectFactory");

    registerQmlUncreatableType<HmiCoreConfigs>(uri, "HmiCoreConfigs");
    registerQmlUncreatableType<ObjectListModelBase>(uri, "ObjectListModelBase");
    registerQmlUncreatableType<RestrictedModePolicy>(uri, "RestrictedModePolicy");
    return true;
}

void registerQmlModule()
{
    static const bool registered = registerTypes();
    Q_UNUSED(registered)
}

} // namespace Hmi::Core
