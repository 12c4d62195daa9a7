#pragma once

#include "TalkingProcess.h"

#include <QFileInfo>
#include <gtest/gtest.h>

/** The simulator as a child that the check commands. */
class Simulator : public TalkingProcess
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

    void command(const QByteArray& aLine) { mProcess.write(aLine + '\n'); }
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

private:
    void start(const QStringList& aArguments) { mProcess.start(getProgram(), aArguments); }

    const QString mSocket;
};
