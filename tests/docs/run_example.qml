import QtQuick 2.15
import QtQuick.Window 2.15
import Hmi.Core 1.0

// Shows the example that the last argument names, presses all that can be pressed, and ends.
Window {
    id: window

    function press(item) {
        for (const child of Array.from(item.children || []))
            press(child)
        if (item.clicked && item.containsMouse !== undefined)
            item.clicked(null)
    }

    visible: true
    width: 800
    height: 480

    Component.onCompleted: {
        if (ThemeManager.availableThemes.length > 0)
            ThemeManager.setCurrentTheme(ThemeManager.availableThemes[0])
        const component = Qt.createComponent("file://" + Qt.application.arguments.slice(-1)[0])
        const example = component.createObject(window.contentItem)
        if (!example)
            console.warn(component.errorString())
    }

    // Long enough for the first values of the signals.
    Timer {
        interval: 300
        running: true
        onTriggered: { window.press(window.contentItem); Qt.callLater(Qt.quit) }
    }
}
