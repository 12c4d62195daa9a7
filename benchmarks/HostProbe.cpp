// Brings up a host and prints when it was ready (CLOCK_MONOTONIC, nanoseconds) and its private memory (kB).

#include <QGuiApplication>
#include <QQmlEngine>
#include <chrono>
#include <cstdio>

#include "PrivateMemory.h"
#ifdef HMI_CORE_HOST
#include <hmi/core/foundation/Initialization.h>
#include <hmi/shared/application/HmiSharedConfigs.h>
#include <hmi/shared/application/PerfEventPolicyMetron.h>
#include <hmi/shared/qml/SharedQmlModule.h>
#endif

int main(int argc, char** argv)
{
    QGuiApplication application(argc, argv);
    const QQmlEngine engine;
#ifdef HMI_CORE_HOST
    Hmi::Core::initialize(QSharedPointer<Hmi::Shared::PerfEventPolicyMetron>::create(),
                          QString::fromLocal8Bit(argv[1]), {});
    Hmi::Shared::HmiSharedConfigs::instance();
    Hmi::Shared::registerQmlModules();
#endif
    const auto ready = std::chrono::steady_clock::now().time_since_epoch();
    std::printf("%lld %ld\n",
                static_cast<long long>(std::chrono::duration_cast<std::chrono::nanoseconds>(ready).count()),
                privateKilobytes());
    return 0;
}
