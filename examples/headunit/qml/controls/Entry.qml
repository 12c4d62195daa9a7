import QtQuick 2.15
import QtQuick.Controls 2.15
// After QtQuick, whose Binding is older.
import QtQml 2.15
import Hmi.Core 1.0
import "."

/*! A field to type into. Typing is what the driver may not do: it is off while restricted mode is on. */
TextField {
    id: entry

    readonly property bool locked: RestrictedModeManager.restrictedModeOn

    // TextField writes its placeholder there, which a binding would not outlast.
    function _describe() { Accessible.description = locked ? qsTr("Locked while driving") : placeholderText }

    onLockedChanged: _describe()
    onPlaceholderTextChanged: Qt.callLater(_describe)
    Component.onCompleted: Qt.callLater(_describe)

    implicitHeight: 44
    selectByMouse: true
    color: Look.text
    selectedTextColor: Look.accentText
    placeholderTextColor: Look.faintText

    background: Rectangle {
        radius: Look.radius
        color: Look.surface
        border { width: entry.activeFocus ? 2 : 1; color: entry.activeFocus ? Look.accent : Look.raised }

        LockSign {
            anchors { right: parent.right; rightMargin: Look.spacing; verticalCenter: parent.verticalCenter }
            visible: entry.locked
        }
    }

    Binding on enabled {
        when: entry.locked
        value: false
        restoreMode: Binding.RestoreBindingOrValue
    }
}
