#pragma once

#include <QObject>

namespace Hmi::Shared {

/**
 * A span of time, for example of a trip, kept as normalised portions and readable as a whole in each unit.
 *
 * Every write replaces the whole span: milliseconds are carried into seconds, those into minutes and so on up
 * to the days, which are unbounded. A negative span keeps its portions at or below zero; portions that were
 * given with mixed signs keep them, so that one minute less thirty seconds stays just that.
 *
 * Belongs to its creator, on the GUI thread. Nothing fails: what exceeds 32 bits wraps around, which the
 * total in milliseconds does from about 24.8 days on.
 */
class Q_DECL_EXPORT TimeDuration : public QObject
{
    Q_OBJECT
    Q_PROPERTY(int millisecondsPortion READ getMillisecondsPortion NOTIFY durationChanged)
    Q_PROPERTY(int secondsPortion READ getSecondsPortion NOTIFY durationChanged)
    Q_PROPERTY(int minutesPortion READ getMinutesPortion NOTIFY durationChanged)
    Q_PROPERTY(int hoursPortion READ getHoursPortion NOTIFY durationChanged)
    Q_PROPERTY(int daysPortion READ getDaysPortion NOTIFY durationChanged)
    Q_PROPERTY(int durationInMilliseconds READ getDurationInMilliseconds WRITE setDurationInMilliseconds
                   NOTIFY durationChanged)
    /** This and the three below are written in whole units: a fraction is cut off, and a number beyond int
     * becomes int's limit. */
    Q_PROPERTY(double durationInSeconds READ getDurationInSeconds WRITE writeSeconds NOTIFY durationChanged)
    Q_PROPERTY(double durationInMinutes READ getDurationInMinutes WRITE writeMinutes NOTIFY durationChanged)
    Q_PROPERTY(double durationInHours READ getDurationInHours WRITE writeHours NOTIFY durationChanged)
    Q_PROPERTY(double durationInDays READ getDurationInDays WRITE writeDays NOTIFY durationChanged)

public:
    explicit TimeDuration(QObject* aParent = nullptr);

    int getMillisecondsPortion() const { return mMilliseconds; }
    int getSecondsPortion() const { return mSeconds; }
    int getMinutesPortion() const { return mMinutes; }
    int getHoursPortion() const { return mHours; }
    int getDaysPortion() const { return mDays; }

    int getDurationInMilliseconds() const;
    double getDurationInSeconds() const;
    double getDurationInMinutes() const;
    double getDurationInHours() const;
    double getDurationInDays() const;

    Q_INVOKABLE void setDuration(int aDays, int aHours, int aMinutes, int aSeconds, int aMilliseconds);
    void setDurationInMilliseconds(int aMilliseconds) { setDuration(0, 0, 0, 0, aMilliseconds); }
    void setDurationInSeconds(int aSeconds) { setDuration(0, 0, 0, aSeconds, 0); }
    void setDurationInMinutes(int aMinutes) { setDuration(0, 0, aMinutes, 0, 0); }
    void setDurationInHours(int aHours) { setDuration(0, aHours, 0, 0, 0); }
    void setDurationInDays(int aDays) { setDuration(aDays, 0, 0, 0, 0); }

signals:
    /** Once after each write, also when it changed nothing. */
    void durationChanged();

private:
    void writeSeconds(double aSeconds);
    void writeMinutes(double aMinutes);
    void writeHours(double aHours);
    void writeDays(double aDays);

    int mMilliseconds = 0;
    int mSeconds = 0;
    int mMinutes = 0;
    int mHours = 0;
    int mDays = 0;
};

} // namespace Hmi::Shared
