// Brings up a host and prints when it was ready (CLOCK_MONOTONIC, nanoseconds) and its private memory (kB).

#include <QFile>
#include <QGuiApplication>
#include <QQmlEngine>
#include <chrono>
#include <cstdio>

#ifdef HMI_CORE_HOST
#include <hmi/core/foundation/Initialization.h>
#include <hmi/shared/application/HmiSharedConfigs.h>
#include <hmi/shared/application/PerfEventPolicyMetron.h>
#include <hmi/shared/qml/SharedQmlModule.h>
#endif

/** Clean pages are not counted: they are pages of files, which every process shares and the kernel may drop.
 */
static long privateKilobytes()
{
    QFile file(QStringLiteral("/proc/self/smaps_rollup"));
    if (!file.open(QFile::ReadOnly))
        return -1;
    const QList<QByteArray> lines = file.readAll().split('\n');
    for (const QByteArray& line : lines)
        if (line.startsWith("Private_Dirty"))
            return line.simplified().split(' ').at(1).toLong();
    return -1;
}

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
