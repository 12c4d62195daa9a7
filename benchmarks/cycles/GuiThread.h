#pragma once

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QThread>
#include <type_traits>

/** Runs it on the GUI thread, where the clients are, also within an event loop that one of them runs there.
 */
template <class Function>
auto onGui(Function aFunction)
{
    using Result = decltype(aFunction());
    if constexpr (std::is_void_v<Result>) {
        QMetaObject::invokeMethod(qApp, aFunction, Qt::BlockingQueuedConnection);
    } else {
        Result result{};
        QMetaObject::invokeMethod(
            qApp, [&] { result = aFunction(); }, Qt::BlockingQueuedConnection);
        return result;
    }
}

/** Whether the condition, which is looked at on the GUI thread, comes to hold in so many milliseconds. */
template <class Condition>
bool waitOnGui(int aMilliseconds, Condition aCondition)
{
    const QDeadlineTimer deadline(aMilliseconds);
    while (!onGui(aCondition)) {
        if (deadline.hasExpired())
            return false;
        QThread::msleep(2);
    }
    return true;
}
