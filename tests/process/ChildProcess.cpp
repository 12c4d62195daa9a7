#include "ChildProcess.h"

#include <QProcess>

ChildProcess ChildProcess::run(const QString& aProgram, const QStringList& aArguments,
                               const QProcessEnvironment& aEnvironment, const QString& aFolder)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.setProcessEnvironment(aEnvironment);
    process.setWorkingDirectory(aFolder);
    process.start(aProgram, aArguments);
    ChildProcess child;
    child.ended =
        process.waitForFinished(60000 * qMax(1, qEnvironmentVariableIntValue("HMI_TEST_TIMEOUT_FACTOR"))) &&
        process.exitStatus() == QProcess::NormalExit;
    child.status = process.exitCode();
    child.output = QString::fromUtf8(process.readAll());
    return child;
}
