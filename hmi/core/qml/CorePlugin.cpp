#include <QQmlExtensionPlugin>

#include <hmi/core/foundation/Initialization.h>
#include <hmi/core/qml/CoreQmlModule.h>

/** Gives Qt's own QML tools the module "Hmi.Core". */
class CorePlugin : public QQmlExtensionPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QQmlExtensionInterface_iid)

public:
    // May run on the type loader's thread.
    void registerTypes(const char*) override { Hmi::Core::registerQmlModule(); }

    void initializeEngine(QQmlEngine*, const char*) override { Hmi::Core::initializePluginHost(); }
};

#include "CorePlugin.moc"
