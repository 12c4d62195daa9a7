import QtQuick 2.15
import QtQuick.Controls 2.15
import QtQuick.Window 2.15
import Hmi.Core 1.0
import hmi.shared 1.0
import "controls"

/*! The head unit's window: the rail and the screen that it chose. Only that one is loaded. */
ApplicationWindow {
    id: window

    objectName: "headunit"
    visible: true
    visibility: HmiCore.configs.getWindowState() === "WindowFullScreen" ? Window.FullScreen : Window.Windowed
    width: 800
    height: 480
    title: qsTr("Head unit")
    background: Rectangle { color: Look.background }
    font { family: Qt.application.font.family; pixelSize: Look.font }
    palette {
        window: Look.surface
        windowText: Look.text
        base: Look.surface
        text: Look.text
        button: Look.raised
        buttonText: Look.text
        highlight: Look.accent
        highlightedText: Look.text
        light: Look.raised
        midlight: Look.raised
        mid: Look.raised
        dark: Look.accent
    }

    /*! Shows the screen and, where it has pages, that page. */
    function open(app, page) {
        AppManager.show(app)
        screen.item.page = page
    }

    Component.onCompleted: AppManager.show("drive")

    Rail {
        id: rail

        height: parent.height
    }
    Loader {
        id: screen

        anchors { fill: parent; leftMargin: rail.width }
        source: AppManager.currentApp.page
    }

    Connections {
        target: RestrictedModeManager
        function onActionRestricted() { Notice.show(qsTr("Not while driving")) }
    }
    Connections {
        target: Notice
        function onShown(text) {
            notice.text = text
            notice.active = true
            noticeEnd.restart()
        }
    }
    Timer {
        id: noticeEnd

        interval: 4000
        onTriggered: notice.active = false
    }
    Loader {
        id: notice

        property string text

        anchors { left: screen.left; right: screen.right; bottom: parent.bottom; margins: Look.spacing }
        active: false
        sourceComponent: Rectangle {
            height: Look.rowHeight
            radius: Look.radius
            color: Look.text

            Words {
                objectName: "notice"
                anchors { fill: parent; leftMargin: Look.spacing; rightMargin: Look.spacing }
                verticalAlignment: Text.AlignVCenter
                color: Look.background
                text: notice.text
                Accessible.role: Accessible.AlertMessage
            }
        }
    }
}
