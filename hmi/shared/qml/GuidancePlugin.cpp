#include <QQmlExtensionPlugin>

#include <hmi/shared/qml/SharedQmlModule.h>

/** Gives Qt's own QML tools the module "hmi.navigation.guidance". */
class GuidancePlugin : public QQmlExtensionPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QQmlExtensionInterface_iid)

public:
    void registerTypes(const char*) override { Hmi::Shared::registerGuidanceModule(); }
};

#include "GuidancePlugin.moc"
