#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QSharedPointer>

#include "SignalVehiclePolicy.h"
#include "VehicleSignalConfigs.h"
#include <hmi/core/foundation/ConfigManager.h>
#include <hmi/core/foundation/Initialization.h>
#include <hmi/core/view/RestrictedModeManager.h>
#include <hmi/shared/application/PerfEventPolicyMetron.h>
#include <hmi/shared/application/modules/HmiSharedGlobal.h>
#include <hmi/shared/qml/SharedQmlModule.h>
#include <hmi/shared/signal-service/SharedTransport.h>

int main(int argc, char** argv)
{
    QGuiApplication application(argc, argv);
    const QString configPath = QCoreApplication::arguments().value(1, QCoreApplication::applicationDirPath() +
                                                                          QStringLiteral("/headunit.ini"));
    Hmi::Core::initialize(QSharedPointer<Hmi::Shared::PerfEventPolicyMetron>::create(), configPath, {});
    Hmi::Shared::registerQmlModules();
    auto* const global = Hmi::Shared::HmiSharedGlobal::instance();
    global->getEnvironmentManager()->completeStartup();
    global->startUp();

    SignalVehiclePolicy vehicle(Hmi::Shared::SignalService::sharedTransport(),
                                VehicleSignalConfigs(*Hmi::Core::ConfigManager::instance()));
    Hmi::Core::RestrictedModeManager::instance()->setPolicy(vehicle.getRestrictedModePolicy());
    qmlRegisterSingletonInstance("headunit", 1, 0, "Vehicle", &vehicle);

    QQmlApplicationEngine engine(QUrl(QStringLiteral("qrc:/headunit/DriveScreen.qml")));
    return engine.rootObjects().isEmpty() ? EXIT_FAILURE : QGuiApplication::exec();
}
