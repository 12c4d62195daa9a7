#include "PrivateBus.h"

#include <QFile>
#include <cstdio>

namespace HmiTest {

static auto* const sBus = static_cast<PrivateBus*>(testing::AddGlobalTestEnvironment(new PrivateBus));

void PrivateBus::SetUp()
{
    // The processes of death tests end with what they were forked with.
    mFolder.setAutoRemove(false);
    const QString address = QStringLiteral("unix:path=") + mFolder.filePath(QStringLiteral("bus"));
    qputenv("DBUS_SYSTEM_BUS_ADDRESS", QFile::encodeName(address));
    mDaemon = std::make_unique<QProcess>();
    mDaemon->setProgram(QStringLiteral("dbus-daemon"));
    mDaemon->setArguments({QStringLiteral("--session"), QStringLiteral("--nofork"),
                           QStringLiteral("--nopidfile"), QStringLiteral("--print-address"),
                           QStringLiteral("--address=") + address});
}

void PrivateBus::TearDown()
{
    stop();
    mDaemon.reset();
    mFolder.remove();
}

bool PrivateBus::start()
{
    sBus->mDaemon->start(QProcess::ReadOnly);
    // It prints its address when it listens.
    const bool listens = sBus->mDaemon->waitForReadyRead(20000);
    if (!listens)
        std::fputs(sBus->mDaemon->readAllStandardError().constData(), stderr);
    return listens;
}

void PrivateBus::stop()
{
    if (sBus->mDaemon->state() == QProcess::NotRunning)
        return;
    sBus->mDaemon->kill();
    sBus->mDaemon->waitForFinished(20000);
}

} // namespace HmiTest
