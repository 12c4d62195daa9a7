pragma Singleton
import QtQml 2.15

/*! The time, to the minute: changes when the minute does. */
QtObject {
    id: now

    property date minute: new Date()

    readonly property Timer _timer: Timer {
        running: true
        interval: 60000 - now.minute.getTime() % 60000 + 20
        onTriggered: {
            now.minute = new Date()
            restart()
        }
    }
}
