#pragma once

#include <QElapsedTimer>
#include <QtGlobal>

namespace Hmi::Shared {

/**
 * A stopwatch that reads 0 until it is started. Belongs to the thread that uses it; virtual, so that a class
 * that measures time can be handed another clock.
 */
class Q_DECL_EXPORT ElapsedTimer
{
public:
    ElapsedTimer() = default;
    Q_DISABLE_COPY_MOVE(ElapsedTimer)
    virtual ~ElapsedTimer();

    /** Milliseconds of monotonic time since the latest start(). */
    virtual qint64 getElapsedMs() const;

    /** Begins at 0, also when already started. */
    virtual void start();

private:
    bool mStarted = false;
    QElapsedTimer mTimer;
};

} // namespace Hmi::Shared
