#include "PlatformService.h"

#include <QDeadlineTimer>
#include <QFile>

#include <benchmarks/Require.h>

static constexpr int Patience = 20000; ///< milliseconds

/** It does not outlive this process, whatever ends that. */
static void startBound(QProcess& aProcess, const QStringList& aCommand)
{
    aProcess.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    aProcess.start(QStringLiteral("setpriv"),
                   QStringList{QStringLiteral("--pdeathsig"), QStringLiteral("KILL"), QStringLiteral("--")} +
                       aCommand);
}

PrivateBus::PrivateBus()
{
    const QString address = QStringLiteral("unix:path=") + mFolder.filePath(QStringLiteral("bus"));
    qputenv("DBUS_SYSTEM_BUS_ADDRESS", QFile::encodeName(address));
    startBound(mDaemon, {QStringLiteral("dbus-daemon"), QStringLiteral("--session"),
                         QStringLiteral("--nofork"), QStringLiteral("--nopidfile"),
                         QStringLiteral("--print-address"), QStringLiteral("--address=") + address});
    require(mDaemon.waitForReadyRead(Patience), "starting a bus");
}

PrivateBus::~PrivateBus()
{
    mDaemon.kill();
    mDaemon.waitForFinished();
}

PlatformService::PlatformService(const QStringList& aArguments, const QByteArray& aReady) :
    mArguments(QStringList{QStringLiteral(HMI_SIMULATOR)} + aArguments), mReady(aReady)
{}

void PlatformService::start()
{
    mProcess = std::make_unique<QProcess>();
    mLines.clear();
    startBound(*mProcess, mArguments);
    waitFor(mReady);
}

void PlatformService::signal(int aSignal) const
{
    require(::kill(static_cast<pid_t>(mProcess->processId()), aSignal) == 0, "reaching a service");
}

void PlatformService::end(int aSignal)
{
    if (!mProcess || mProcess->state() == QProcess::NotRunning)
        return;
    signal(aSignal);
    require(mProcess->waitForFinished(Patience), "ending a service");
}

void PlatformService::command(const QByteArray& aLine)
{
    // Only who waits reads the pipe, and a full one would hold the service.
    while (mProcess->waitForReadyRead(0))
        mProcess->readAllStandardOutput();
    mLines.clear();
    mProcess->write(aLine + '\n');
    mProcess->waitForBytesWritten(Patience);
}

void PlatformService::command(const QByteArray& aLine, const QByteArray& aAnswer)
{
    command(aLine);
    waitFor(aAnswer);
}

void PlatformService::waitFor(const QByteArray& aLine)
{
    const QDeadlineTimer deadline(Patience);
    mLines += mProcess->readAllStandardOutput();
    while (!('\n' + mLines).contains('\n' + aLine + '\n')) {
        require(mProcess->waitForReadyRead(static_cast<int>(deadline.remainingTime())), aLine.constData());
        mLines += mProcess->readAllStandardOutput();
    }
}
