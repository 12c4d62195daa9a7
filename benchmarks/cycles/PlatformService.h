#pragma once

#include <QByteArray>
#include <QProcess>
#include <QStringList>
#include <QTemporaryDir>
#include <csignal>
#include <memory>

/** A bus in the place of the system bus, which the process must not have used yet. */
class PrivateBus
{
public:
    PrivateBus();
    ~PrivateBus();
    qint64 getProcess() const { return mDaemon.processId(); }

private:
    const QTemporaryDir mFolder;
    QProcess mDaemon;
};

/**
 * One of the platform's services: the simulator in a process of its own, which takes commands and can be
 * harmed. Of the thread that starts it.
 */
class PlatformService
{
public:
    /** It is up when it says the line. */
    PlatformService(const QStringList& aArguments, const QByteArray& aReady);
    ~PlatformService() { end(SIGKILL); }

    void start();
    /** 0 when it does not run. */
    qint64 getProcess() const { return mProcess->processId(); }
    void signal(int aSignal) const;
    /** Returns when the process has ended. */
    void end(int aSignal);
    void command(const QByteArray& aLine);
    /** Returns when it says the line, which is none that it said before. */
    void command(const QByteArray& aLine, const QByteArray& aAnswer);

private:
    void waitFor(const QByteArray& aLine);

    const QStringList mArguments;
    const QByteArray mReady;
    std::unique_ptr<QProcess> mProcess;
    QByteArray mLines;
};
