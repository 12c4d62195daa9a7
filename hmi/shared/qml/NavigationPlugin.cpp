#include <QQmlExtensionPlugin>

#include <hmi/shared/qml/SharedQmlModule.h>

/** Gives Qt's own QML tools the module "hmi.navigation". */
class NavigationPlugin : public QQmlExtensionPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QQmlExtensionInterface_iid)

public:
    void registerTypes(const char*) override { Hmi::Shared::registerNavigationModule(); }
};

#include "NavigationPlugin.moc"
