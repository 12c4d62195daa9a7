#pragma once

#include <QObject>
#include <QPair>
#include <QPointer>
#include <QVector>

class QTimer;

namespace Hmi::Shared {

/**
 * Paces repeated attempts, for example to reach a service, along a schedule of stages. Each start() leads to
 * one tick after the present stage's interval; the receiver makes its attempt and calls start() again if it
 * failed.
 *
 * A stage (repeat count c, interval) gives c + 1 ticks at that interval, then the next stage follows; a
 * negative c never ends. A schedule whose last stage is endless only ever emits retry(), any other only
 * retryConditional(). After the final tick the timer stays in its last stage, and every further tick is final
 * too.
 *
 * Belongs to its creator and to the thread of its timer. With an empty schedule nothing ever happens: start()
 * does nothing. A negative interval is reported by Qt's warning at start() and gives no tick.
 */
class Q_DECL_EXPORT RetryTimer : public QObject
{
    Q_OBJECT
public:
    using Stage = QPair<int, int>; ///< repeat count, interval in milliseconds
    using Schedule = QVector<Stage>;

    /**
     * aTimerParent becomes the parent of the inner timer only and may be null. Once it is deleted there are
     * no more ticks.
     */
    RetryTimer(Schedule aSchedule, QObject* aTimerParent);
    ~RetryTimer() override;

    /** Waits for the next tick; called before that tick it begins the interval anew. */
    void start();

    /** Cancels the pending tick and returns to the beginning of the schedule. */
    void stop();

public slots:
    void onTimeout();

signals:
    void retry();
    void retryConditional(bool aFinalRetry);

private:
    bool isFinalTick() const;
    void advance();

    Schedule mSchedule;
    QPointer<QTimer> mTimer; ///< null once its parent was deleted
    int mRepeats = 0;        ///< done in the current stage
    int mStage = 0;          ///< index into the schedule
};

} // namespace Hmi::Shared
