#include <simulator/services/ServiceFaults.h>

#include <QTimerEvent>

namespace Hmi::Simulator {

void ServiceFaults::setDelay(int aDelay)
{
    mDelay = aDelay;
    while (mDelay == 0 && !mWaiting.empty())
        sendWaiting(mWaiting.begin()->first);
}

void ServiceFaults::answer(const QDBusMessage& aCall, const QDBusConnection& aConnection,
                           const std::function<QDBusMessage()>& aCarryOut)
{
    if (mFault == Fault::Mute)
        return;
    QDBusMessage answer =
        mFault == Fault::Refuse
            ? aCall.createErrorReply(QDBusError::Failed, QStringLiteral("the service refuses all calls"))
            : aCarryOut();
    if (mFault == Fault::Garble)
        answer = aCall.createReply({QByteArray("garbled"), 1.5});
    if (aCall.isReplyRequired())
        send({aConnection, answer});
}

void ServiceFaults::send(const Answer& aAnswer)
{
    if (mDelay == 0) {
        aAnswer.connection.send(aAnswer.message);
        return;
    }
    mWaiting.emplace(startTimer(mDelay, Qt::PreciseTimer), aAnswer);
}

void ServiceFaults::timerEvent(QTimerEvent* aEvent) { sendWaiting(aEvent->timerId()); }

void ServiceFaults::sendWaiting(int aTimer)
{
    killTimer(aTimer);
    const auto answer = mWaiting.extract(aTimer);
    if (answer)
        answer.mapped().connection.send(answer.mapped().message);
}

} // namespace Hmi::Simulator
