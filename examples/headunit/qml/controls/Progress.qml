import QtQuick 2.15
import QtQuick.Controls 2.15
import "."

/*! How far something is. */
ProgressBar {
    id: progress

    property string name

    implicitHeight: 12
    Accessible.name: name

    background: Rectangle {
        radius: height / 2
        color: Look.raised
    }
    contentItem: Item {
        Rectangle {
            width: progress.visualPosition * parent.width
            height: parent.height
            radius: height / 2
            color: Look.accent
        }
    }
}
