#include <hmi/shared/application/modules/HardwareButtonManager.h>

#include <QCoreApplication>
#include <QKeyEvent>
#include <QStringList>
#include <QTimerEvent>

#include <hmi/core/foundation/HmiCoreConfigs.h>

namespace Hmi::Shared {

static QString buttonName(int aKey)
{
    static const QHash<int, QString> names = {
        {Qt::Key_HomePage, QStringLiteral("Home")},
        {Qt::Key_Back, QStringLiteral("Back")},
        {Qt::Key_Menu, QStringLiteral("Menu")},
        {Qt::Key_VolumeUp, QStringLiteral("VolumeUp")},
        {Qt::Key_VolumeDown, QStringLiteral("VolumeDown")},
        {Qt::Key_VolumeMute, QStringLiteral("Mute")},
        {Qt::Key_PowerOff, QStringLiteral("Power")},
        {Qt::Key_Call, QStringLiteral("Phone")},
        {Qt::Key_Hangup, QStringLiteral("HangUp")},
        {Qt::Key_MediaNext, QStringLiteral("Next")},
        {Qt::Key_MediaPrevious, QStringLiteral("Previous")},
        {Qt::Key_MediaTogglePlayPause, QStringLiteral("PlayPause")},
        {Qt::Key_VoiceDial, QStringLiteral("Voice")},
    };
    return names.value(aKey);
}

HardwareButtonManager::HardwareButtonManager(QObject* aWatched,
                                             std::chrono::milliseconds aLongPressInterval) :
    mWatched(aWatched), mLongPressInterval(aLongPressInterval)
{
    aWatched->installEventFilter(this);
}

HardwareButtonManager::HardwareButtonManager(QQmlEngine*, QJSEngine*) :
    HardwareButtonManager(
        QCoreApplication::instance(),
        std::chrono::milliseconds(Core::HmiCoreConfigs::instance()->getIntervalPressAndHold()))
{}

void HardwareButtonManager::setConsumeEvents(bool aConsumeEvents)
{
    if (mConsumeEvents == aConsumeEvents)
        return;
    mConsumeEvents = aConsumeEvents;
    emit consumeEventsChanged();
}

bool HardwareButtonManager::eventFilter(QObject* aWatched, QEvent* aEvent)
{
    switch (aEvent->type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        return handleKey(*static_cast<QKeyEvent*>(aEvent));
    case QEvent::ApplicationStateChange:
        if (static_cast<QApplicationStateChangeEvent*>(aEvent)->applicationState() != Qt::ApplicationActive)
            releaseAll();
        return false;
    case QEvent::FocusOut:
        if (aWatched == mWatched)
            releaseAll();
        return false;
    default:
        return false;
    }
}

bool HardwareButtonManager::handleKey(const QKeyEvent& aEvent)
{
    const QString name = buttonName(aEvent.key());
    if (name.isEmpty())
        return false;
    if (!aEvent.isAutoRepeat()) {
        if (aEvent.type() == QEvent::KeyPress)
            press(name);
        else
            release(name);
    }
    return mConsumeEvents;
}

void HardwareButtonManager::press(const QString& aName)
{
    if (isPressed(aName))
        return;
    mTimerByName.insert(aName, startTimer(mLongPressInterval));
    emit buttonPressed(aName);
}

void HardwareButtonManager::release(const QString& aName)
{
    if (!isPressed(aName))
        return;
    if (const int timer = mTimerByName.take(aName))
        killTimer(timer);
    emit buttonReleased(aName);
}

void HardwareButtonManager::releaseAll()
{
    const QStringList names = mTimerByName.keys();
    for (const QString& name : names)
        release(name);
}

void HardwareButtonManager::timerEvent(QTimerEvent* aEvent)
{
    killTimer(aEvent->timerId());
    const QString name = mTimerByName.key(aEvent->timerId());
    mTimerByName.insert(name, 0);
    emit buttonLongPressed(name);
}

} // namespace Hmi::Shared
