import QtQuick 2.15
import "."

/*! A row with a caption and, right of it, a value to read or controls. */
Item {
    id: row

    property alias caption: caption.text
    property alias value: value.text
    default property alias controls: controls.data

    implicitWidth: 400
    implicitHeight: Look.rowHeight

    Words {
        id: caption

        width: parent.width - controls.width - Look.spacing
        height: parent.height
        color: Look.faintText
        verticalAlignment: Text.AlignVCenter
    }
    Row {
        id: controls

        anchors { right: parent.right; verticalCenter: parent.verticalCenter }
        spacing: Look.spacing

        Words {
            id: value

            anchors.verticalCenter: parent.verticalCenter
            objectName: row.objectName + "Value"
            visible: text !== ""
            Accessible.description: row.caption
        }
    }
}
