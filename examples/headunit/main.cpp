#include <QQmlComponent>
#include <QQmlEngine>

#include "SignalVehiclePolicy.h"
#include "VehicleSignalConfigs.h"
#include <hmi/core/foundation/ConfigManager.h>
#include <hmi/core/view/RestrictedModeManager.h>
#include <hmi/shared/application/Application.h>
#include <hmi/shared/application/modules/HmiSharedGlobal.h>
#include <hmi/shared/signal-service/SharedTransport.h>

namespace {

/** The product: its vehicle, and the screen that shows it. */
class HeadUnit : public Hmi::Shared::Application
{
public:
    HeadUnit(int& aArgumentCount, char** aArguments) :
        Application(aArgumentCount, aArguments, QStringLiteral("headunit"))
    {}

protected:
    /** The first argument, or the file beside the program. */
    QString getConfigFile() const override
    {
        return arguments().value(1, applicationDirPath() + QStringLiteral("/headunit.ini"));
    }

    void initServices() override
    {
        initNonBlockingModules();
        mVehicle = std::make_unique<SignalVehiclePolicy>(
            Hmi::Shared::SignalService::sharedTransport(),
            VehicleSignalConfigs(*Hmi::Core::ConfigManager::instance()));
        Hmi::Core::RestrictedModeManager::instance()->setPolicy(mVehicle->getRestrictedModePolicy());
        qmlRegisterSingletonInstance("headunit", 1, 0, "Vehicle", mVehicle.get());
    }

    void initViewerApp() override
    {
        QQmlComponent component(getQmlEngine(), QUrl(QStringLiteral("qrc:/headunit/DriveScreen.qml")));
        mScreen.reset(component.create());
        if (!mScreen)
            qFatal("The screen cannot be shown: %s", qUtf8Printable(component.errorString()));
    }

    void postInit() override
    {
        Hmi::Shared::HmiSharedGlobal::instance()->getEnvironmentManager()->completeStartup();
        handleApplicationStartupComplete(true);
    }

    void clearViewerApp() override { mScreen.reset(); }

    void deInitServices() override
    {
        mVehicle.reset();
        deInitNonBlockingModules();
    }

private:
    std::unique_ptr<SignalVehiclePolicy> mVehicle;
    std::unique_ptr<QObject> mScreen;
};

} // namespace

int main(int argc, char** argv)
{
    HeadUnit headUnit(argc, argv);
    headUnit.init();
    return QCoreApplication::exec();
}
