#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <functional>
#include <map>

namespace Hmi::Simulator {

/** What goes wrong with the answers of every D-Bus service. An honest service has no fault and no delay. */
class ServiceFaults : public QObject
{
    Q_OBJECT

public:
    enum class Fault {
        None,
        Mute,   ///< calls are lost
        Refuse, ///< calls are answered with an error, and not carried out
        Garble  ///< calls are carried out and answered with what no method returns
    };

    void setFault(Fault aFault) { mFault = aFault; }
    /** In milliseconds; 0 sends at once what waits. */
    void setDelay(int aDelay);

    /** Answers a call with what carrying it out gives, or with what the fault makes of that. */
    void answer(const QDBusMessage& aCall, const QDBusConnection& aConnection,
                const std::function<QDBusMessage()>& aCarryOut);

protected:
    void timerEvent(QTimerEvent* aEvent) override;

private:
    struct Answer
    {
        QDBusConnection connection;
        QDBusMessage message;
    };

    void send(const Answer& aAnswer);
    void sendWaiting(int aTimer);

    Fault mFault = Fault::None;
    int mDelay = 0;
    std::map<int, Answer> mWaiting; ///< by their timers
};

} // namespace Hmi::Simulator
