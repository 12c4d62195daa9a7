#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

namespace Hmi::Simulator {

/** What goes from 0 to 100 percent in its time: a download, a phase of an installation. */
class Progress : public QObject
{
    Q_OBJECT

public:
    Progress();

    /** An amount in any unit and the rate in that unit for each second, above 0. From now on it is under way.
     */
    void start(double aAmount, double aRate);
    void setRate(double aRate);
    void pause();
    void resume();
    /** Ends it without a word. */
    void stop();

    bool isUnderWay() const { return mIsUnderWay; }
    bool isPaused() const { return mIsUnderWay && !mTimer.isActive(); }
    int getPercent() const { return qMax(0, mPercent); }

signals:
    /** From 0 to 100; what went by between two looks is left out. */
    void progressed(int aPercent);
    /** After 100 percent; it is under way no more. */
    void finished();

private:
    void look();

    QTimer mTimer;
    QElapsedTimer mClock; ///< since the amount done was counted
    double mAmount = 0;
    double mRate = 1;
    double mDone = 0;
    int mPercent = -1;
    bool mIsUnderWay = false;
};

} // namespace Hmi::Simulator
