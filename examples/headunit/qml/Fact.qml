import QtQuick 2.15
import "controls"

/*! A caption and, right of it, a value that may be long. */
Item {
    property alias caption: caption.text
    property alias value: value.text

    implicitHeight: Math.max(caption.height, value.height) + Look.spacing

    Words {
        id: caption

        anchors.baseline: value.baseline
        width: 130
        color: Look.faintText
        font.pixelSize: Look.fontSmall
    }
    Paragraph {
        id: value

        objectName: parent.objectName + "Value"
        anchors { left: caption.right; leftMargin: Look.spacing; right: parent.right }
        Accessible.description: caption.text
    }
}
