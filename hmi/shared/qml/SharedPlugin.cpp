#include <QQmlExtensionPlugin>

#include <hmi/core/foundation/Initialization.h>
#include <hmi/shared/qml/SharedQmlModule.h>

/** Gives Qt's own QML tools the module "hmi.shared". */
class SharedPlugin : public QQmlExtensionPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QQmlExtensionInterface_iid)

public:
    // May run on the type loader's thread.
    void registerTypes(const char*) override
    {
        Hmi::Shared::registerSharedModule(
            Hmi::Core::readPluginHostSwitch(QStringLiteral("HmiShared/DataManagerEnabled")),
            Hmi::Core::readPluginHostSwitch(QStringLiteral("HmiShared/SystemUpdateEnabled")));
    }

    void initializeEngine(QQmlEngine*, const char*) override
    {
        Hmi::Core::initializePluginHost();
        Hmi::Shared::startPluginHost();
    }
};

#include "SharedPlugin.moc"
