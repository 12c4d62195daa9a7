#include <QCoreApplication>

#include <hmi/core/models/ObjectListModelT.h>
#include <hmi/shared/settings/Setting.h>
#include <hmi/shared/signal-service/TransportProxy.h>
#include <hmi/shared/units/Distance.h>
#include <platform/update-manager/UpdateManagerClient.h>

using namespace Hmi::Shared;

/** Uses something of each library: templates, what is generated, and what has private libraries behind it. */
int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    Hmi::Core::ObjectListModelT<Distance*> model;
    model.append(new Distance(&model, MeasurementUnits::UnitDistanceKilometer, 1.5));
    const double metres = model.at(0)->getValue() * 1000;
    const Setting setting(QStringLiteral("key"), QStringLiteral("name"), Setting::SettingTypeInt, 3,
                          Setting::SettingCategoryUser);
    const SignalService::TransportProxy transport(QStringLiteral("nowhere"));
    const UpdateManager::UpdateManagerClient client(QDBusConnection(QStringLiteral("no bus")));
    return metres > 1499 && metres < 1501 && !client.isValid() ? 0 : 1;
}
