#include <simulator/services/ServiceFaults.h>

#include <QTimer>

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
    mWaiting.emplace(++mLast, aAnswer);
    QTimer::singleShot(mDelay, Qt::PreciseTimer, this, [this, number = mLast] { sendWaiting(number); });
}

void ServiceFaults::sendWaiting(int aNumber)
{
    const auto answer = mWaiting.find(aNumber);
    if (answer == mWaiting.end())
        return;
    answer->second.connection.send(answer->second.message);
    mWaiting.erase(answer);
}

} // namespace Hmi::Simulator
