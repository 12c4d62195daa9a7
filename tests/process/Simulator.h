#pragma once

#include <QFileInfo>
#include <QProcess>
#include <QStringList>
#include <gtest/gtest.h>
#include <tests/support/FilesAndWaits.h>

/** The simulator as a child that the check commands. */
class Simulator
{
public:
    static QString getProgram() { return QStringLiteral(HMI_SIMULATOR); }

    /** With the signal service only. */
    Simulator(const QString& aSocket, const QStringList& aArguments = {}, const QString& aInput = {}) :
        mSocket(aSocket)
    {
        mProcess.setStandardInputFile(aInput);
        start(QStringList{QStringLiteral("--signal-service"), aSocket} + aArguments);
        EXPECT_TRUE(says("listening " + aSocket.toUtf8()));
    }
    /** With services on D-Bus only. */
    explicit Simulator(const QStringList& aArguments)
    {
        start(QStringList{QStringLiteral("--no-signal-service")} + aArguments);
    }
    ~Simulator()
    {
        mProcess.kill();
        mProcess.waitForFinished();
    }

    void command(const QByteArray& aLine) { mProcess.write(aLine + '\n'); }
    /** Whether this line comes, after those that were waited for before. */
    bool says(const QByteArray& aLine)
    {
        int found = -1;
        const bool said = HmiTest::waitUntil([&] {
            mLines += mProcess.readAllStandardOutput();
            found = ('\n' + mLines).indexOf('\n' + aLine + '\n');
            return found >= 0;
        });
        mBefore = mLines.left(said ? found : 0);
        mLines.remove(0, said ? found + aLine.size() + 1 : 0);
        return said;
    }
    /** What it said between the last two lines that were waited for. */
    QByteArray getBefore() const { return mBefore; }
    bool answers(const QByteArray& aCommand, const QByteArray& aLine)
    {
        command(aCommand);
        return says(aLine);
    }
    bool ends()
    {
        return HmiTest::waitUntil([&] { return mProcess.state() == QProcess::NotRunning; }) &&
               mProcess.exitStatus() == QProcess::NormalExit && mProcess.exitCode() == 0 &&
               !QFileInfo::exists(mSocket);
    }
    QProcess& getProcess() { return mProcess; }

private:
    void start(const QStringList& aArguments) { mProcess.start(getProgram(), aArguments); }

    const QString mSocket;
    QProcess mProcess;
    QByteArray mLines;
    QByteArray mBefore;
};
