#pragma once

#include <QHash>
#include <QString>
#include <chrono>

#include <hmi/core/foundation/SingletonCppQml.h>

class QKeyEvent;

namespace Hmi::Shared {

/**
 * Turns the key events of the hardware buttons around the display into button names: "Home", "Back", "Menu",
 * "VolumeUp", "VolumeDown", "Mute", "Power", "Phone", "HangUp", "Next", "Previous", "PlayPause" and "Voice".
 *
 * It filters the events of the application (or of one object). A key that repeats, or that travels from a
 * window to its items, is one press. A button held when the application (or the object) loses the focus
 * counts as released, because its key's release goes elsewhere. Main thread only.
 */
class Q_DECL_EXPORT HardwareButtonManager : public Core::SingletonCppQml<HardwareButtonManager>
{
    Q_OBJECT
    Q_PROPERTY(bool consumeEvents READ getConsumeEvents WRITE setConsumeEvents NOTIFY consumeEventsChanged)
    friend class Core::SingletonCppQml<HardwareButtonManager>;

public:
    /** The watched object stays the caller's; a button held for the interval is a long press. */
    HardwareButtonManager(QObject* aWatched, std::chrono::milliseconds aLongPressInterval);

    Q_INVOKABLE bool isPressed(const QString& aName) const { return mTimerByName.contains(aName); }

    /** Whether the keys of buttons end here (true) or travel on to windows and items (false, the default). */
    bool getConsumeEvents() const { return mConsumeEvents; }
    void setConsumeEvents(bool aConsumeEvents);

    bool eventFilter(QObject* aWatched, QEvent* aEvent) override;

signals:
    void buttonPressed(const QString& aName);
    void buttonReleased(const QString& aName);
    /** Once a press, between buttonPressed() and buttonReleased(). */
    void buttonLongPressed(const QString& aName);
    void consumeEventsChanged();

protected:
    void timerEvent(QTimerEvent* aEvent) override;

private:
    HardwareButtonManager(QQmlEngine* aEngine, QJSEngine* aScriptEngine);

    bool handleKey(const QKeyEvent& aEvent);
    void press(const QString& aName);
    void release(const QString& aName);
    void releaseAll();

    QObject* const mWatched;
    const std::chrono::milliseconds mLongPressInterval;
    bool mConsumeEvents = false;
    /** The pressed buttons, each with the timer of its long press. */
    QHash<QString, int> mTimerByName;
};

} // namespace Hmi::Shared
