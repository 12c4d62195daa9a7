import QtQuick 2.15
import QtQuick.Controls 2.15
// After QtQuick, whose Binding is older.
import QtQml 2.15
import Hmi.Core 1.0
import "."

/*! A button. One that is restricted is off, and has a lock, while restricted mode is on. */
Button {
    id: button

    property bool restricted: false
    readonly property bool locked: restricted && RestrictedModeManager.restrictedModeOn

    implicitHeight: 44
    leftPadding: 16
    rightPadding: 16
    // The accessibility tree of Qt 5 has no state of its own for what is off.
    Accessible.description: locked ? qsTr("Locked while driving") : enabled ? "" : qsTr("Not available")

    contentItem: Row {
        spacing: Look.spacing

        LockSign {
            anchors.verticalCenter: parent.verticalCenter
            visible: button.locked
        }
        Text {
            anchors.verticalCenter: parent.verticalCenter
            text: button.text
            font: button.font
            color: button.enabled ? Look.text : Look.faintText
        }
    }
    background: Rectangle {
        radius: Look.radius
        color: button.down ? Look.accent : Look.raised
        border { width: button.visualFocus ? 2 : 0; color: Look.accent }
    }

    Binding on enabled {
        when: button.locked
        value: false
        restoreMode: Binding.RestoreBindingOrValue
    }
}
