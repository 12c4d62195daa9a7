#pragma once

#include <QHash>
#include <QString>
#include <QStringList>
#include <chrono>

#include <hmi/core/foundation/SingletonCppQml.h>

class QProcess;

namespace Hmi::Core {

/**
 * Runs child processes for the HMI and reports how they end. A child reads nothing (its input is empty),
 * its output goes where the HMI's own goes, and it gets the HMI's environment without what systemd says to the
 * HMI alone.
 *
 * Every id that launch() returned ends with exactly one of finished() and failed(), never before launch()
 * has returned, unless the launcher goes away first: that terminates the children still running, and kills
 * those that have not ended after the kill delay that they share.
 *
 * Nothing else blocks. Main thread only.
 */
class Q_DECL_EXPORT ProcessLauncher : public SingletonCppQml<ProcessLauncher>
{
    Q_OBJECT
    friend class SingletonCppQml<ProcessLauncher>;

public:
    static constexpr std::chrono::milliseconds DefaultKillDelay{3000};

    /** The kill delay is how long a child may take to end after it was asked to. */
    explicit ProcessLauncher(std::chrono::milliseconds aKillDelay);
    ~ProcessLauncher() override;

    /**
     * Starts a program, a path or a name to find in PATH, and returns the id of the child, above 0. When
     * there is no such program, or no process can be made, 0 is returned with one warning and no signal.
     */
    Q_INVOKABLE int launch(const QString& aProgram, const QStringList& aArguments = {});

    /**
     * Asks the child to end (SIGTERM) and kills it if it has not after the kill delay; finished() tells when
     * it has. False for an id that is not running.
     */
    Q_INVOKABLE bool terminate(int aId);

    /** Also true while the child is still starting. */
    Q_INVOKABLE bool isRunning(int aId) const { return mProcesses.contains(aId); }

signals:
    void started(int aId);

    /** A child that crashed was ended by a signal; its exit code is then the signal's number. */
    void finished(int aId, int aExitCode, bool aCrashed);

    /** The child could not run the program, for example because its interpreter is missing. */
    void failed(int aId, const QString& aReason);

private:
    ProcessLauncher(QQmlEngine* aEngine, QJSEngine* aScriptEngine);

    void follow(int aId, QProcess* aProcess);
    void fail(int aId);
    QProcess* release(int aId);

    const std::chrono::milliseconds mKillDelay;
    QHash<int, QProcess*> mProcesses;
    int mLastId = 0;
};

} // namespace Hmi::Core
