#include <hmi/core/view/ProcessLauncher.h>

#include <QDeadlineTimer>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <QTimer>

#include <platform/shutdown/ChildEnvironment.h>

namespace Hmi::Core {

static bool isProgram(const QString& aProgram)
{
    if (!aProgram.contains(QLatin1Char('/')))
        return !QStandardPaths::findExecutable(aProgram).isEmpty();
    const QFileInfo file(aProgram);
    return file.isFile() && file.isExecutable();
}

static int refuse(const QString& aProgram, const QString& aReason)
{
    qWarning("The program \"%s\" was not started: %s", qPrintable(aProgram), qPrintable(aReason));
    return 0;
}

ProcessLauncher::ProcessLauncher(std::chrono::milliseconds aKillDelay) : mKillDelay(aKillDelay) {}

ProcessLauncher::ProcessLauncher(QQmlEngine*, QJSEngine*) : ProcessLauncher(DefaultKillDelay) {}

ProcessLauncher::~ProcessLauncher()
{
    for (QProcess* process : qAsConst(mProcesses)) {
        process->disconnect(this);
        process->terminate();
    }
    const QDeadlineTimer deadline(mKillDelay);
    for (QProcess* process : qAsConst(mProcesses)) {
        if (!process->waitForFinished(static_cast<int>(deadline.remainingTime()))) {
            process->kill();
            process->waitForFinished(static_cast<int>(mKillDelay.count()));
        }
        delete process;
    }
}

int ProcessLauncher::launch(const QString& aProgram, const QStringList& aArguments)
{
    if (!isProgram(aProgram))
        return refuse(aProgram, QStringLiteral("there is no executable file of this name."));
    auto* process = new QProcess(this);
    // Output that nobody reads must not pile up in this process.
    process->setProcessChannelMode(QProcess::ForwardedChannels);
    process->setStandardInputFile(QProcess::nullDevice());
    process->setProcessEnvironment(QT::childEnvironment());
    process->start(aProgram, aArguments);
    if (process->state() == QProcess::NotRunning) {
        const QString reason = process->errorString();
        delete process;
        return refuse(aProgram, reason);
    }
    follow(++mLastId, process);
    return mLastId;
}

void ProcessLauncher::follow(int aId, QProcess* aProcess)
{
    mProcesses.insert(aId, aProcess);
    connect(aProcess, &QProcess::started, this, [this, aId] { emit started(aId); });
    connect(aProcess, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), this,
            [this, aId](int aExitCode, QProcess::ExitStatus aStatus) {
                release(aId);
                emit finished(aId, aExitCode, aStatus == QProcess::CrashExit);
            });
    connect(aProcess, &QProcess::errorOccurred, this, [this, aId](QProcess::ProcessError aError) {
        if (aError == QProcess::FailedToStart)
            fail(aId);
    });
}

void ProcessLauncher::fail(int aId)
{
    const QProcess* process = release(aId);
    const QString reason = process->errorString();
    refuse(process->program(), reason);
    emit failed(aId, reason);
}

QProcess* ProcessLauncher::release(int aId)
{
    QProcess* process = mProcesses.take(aId);
    process->deleteLater();
    return process;
}

bool ProcessLauncher::terminate(int aId)
{
    QProcess* process = mProcesses.value(aId);
    if (!process)
        return false;
    process->terminate();
    QTimer::singleShot(mKillDelay, process, &QProcess::kill);
    return true;
}

} // namespace Hmi::Core
