#pragma once

#include <QProcess>
#include <tests/support/FilesAndWaits.h>

/** A program that the check listens to, until the check ends. */
class TalkingProcess
{
public:
    TalkingProcess() = default;
    ~TalkingProcess()
    {
        mProcess.kill();
        mProcess.waitForFinished();
    }
    Q_DISABLE_COPY(TalkingProcess)

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
    QProcess& getProcess() { return mProcess; }

protected:
    QProcess mProcess;
    QByteArray mLines;

private:
    QByteArray mBefore;
};
