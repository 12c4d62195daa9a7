#include "NotificationService.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <csignal>
#include <cstdio>
#include <sys/prctl.h>

#include "Require.h"
#include "Times.h"

NotificationService::NotificationService()
{
    NotificationMgr::registerTypes();
    for (uint id = 0; id < ListedNotifications; ++id)
        mNotifications.insert(id, {static_cast<int>(id % 3), QStringLiteral("SoftwareUpdate"),
                                   QStringLiteral("navigation-map-%1").arg(id)});
    mPace.setTimerType(Qt::PreciseTimer);
    mPace.setInterval(5);
    connect(&mPace, &QTimer::timeout, this, &NotificationService::add);
}

void NotificationService::run()
{
    // Whatever ends the program that measures.
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    NotificationService service;
    QDBusConnection bus = QDBusConnection::systemBus();
    require(bus.registerObject(QStringLiteral("/com/korvex/NotificationManager"), &service,
                               QDBusConnection::ExportAllContents) &&
                bus.registerService(QStringLiteral("com.korvex.NotificationManager")) &&
                bus.registerService(QStringLiteral("com.korvex.UpdateManager")),
            "being on the bus");
    std::puts("");
    std::fflush(stdout);
    QCoreApplication::exec();
}

void NotificationService::start(int aCount)
{
    mLeft = aCount;
    mPace.start();
}

void NotificationService::add()
{
    emit NotificationAdded(mNextId++, QStringLiteral("SoftwareUpdate"), QStringLiteral("navigation-map"),
                           true, monotonicTime(), 0);
    if (--mLeft == 0)
        mPace.stop();
}
