// A whole process: an application with all subsystems, or without the library an empty one with an engine. It
// prints when it came into main() and when it was up (CLOCK_MONOTONIC, nanoseconds), then its private memory
// (kB), and ends in order when its standard input does.

#include <QGuiApplication>
#include <QQmlEngine>
#include <QSocketNotifier>
#include <chrono>
#include <cstdio>
#include <unistd.h>

#include "PrivateMemory.h"
#ifdef HMI_WHOLE_APPLICATION
#include <hmi/shared/application/Application.h>
#include <hmi/shared/application/modules/HmiSharedGlobal.h>
#include <hmi/shared/services/NotificationListModel.h>
#include <hmi/shared/signal-service/RxSignalProxy.h>
#include <hmi/shared/signal-service/SharedTransport.h>
#include <hmi/shared/signal-service/TransportProxy.h>
#endif

static long long now()
{
    return std::chrono::steady_clock::now().time_since_epoch() / std::chrono::nanoseconds(1);
}

#ifdef HMI_WHOLE_APPLICATION
namespace {

using Hmi::Shared::HmiSharedGlobal;

class Probe : public Hmi::Shared::Application
{
public:
    Probe(int& aCount, char** aArguments) : Application(aCount, aArguments, QStringLiteral("probe")) {}
    ~Probe() override { requestShutdown(); }

    void start() { init(); }

protected:
    QString getConfigFile() const override { return QStringLiteral("probe.ini"); }

    void initServices() override
    {
        initNonBlockingModules();
        const auto transport = Hmi::Shared::SignalService::sharedTransport();
        for (const char* const name : {"Speed", "TraveledDistance", "Powertrain.Range", "IsMoving"})
            (new SignalService::RxSignalProxy(*transport, QLatin1String("Vehicle.") + QLatin1String(name),
                                              this))
                ->RequestUpdates();
        mTransport = transport;
        mNotifications = std::make_unique<Hmi::Shared::NotificationListModel>();
    }
    void postInit() override
    {
        HmiSharedGlobal::instance()->getEnvironmentManager()->completeStartup();
        handleApplicationStartupComplete(true);
    }
    void deInitServices() override
    {
        qDeleteAll(findChildren<SignalService::RxSignalProxy*>());
        mTransport.reset();
        mNotifications.reset();
        deInitNonBlockingModules();
    }

private:
    std::shared_ptr<SignalService::TransportProxy> mTransport;
    std::unique_ptr<Hmi::Shared::NotificationListModel> mNotifications;
};

} // namespace
#else
namespace {

struct Probe : QGuiApplication
{
    using QGuiApplication::QGuiApplication;
    void start() const {}

    const QQmlEngine engine;
};

} // namespace
#endif

int main(int argc, char** argv)
{
    const long long entered = now();
    Probe probe(argc, argv);
    const long long constructed = now();
    probe.start();
    const long long up = now();
    std::printf("%lld %lld %lld %ld\n", entered, constructed, up, privateKilobytes());
    std::fflush(stdout);
    const QSocketNotifier input(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(&input, &QSocketNotifier::activated, &probe, &QCoreApplication::quit);
    return QCoreApplication::exec();
}
