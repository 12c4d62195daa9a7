import QtQuick 2.15
import "."

/*! A padlock: what it stands beside is locked in restricted mode. */
Item {
    id: sign

    property color color: Look.warning

    width: 18
    height: 22

    Rectangle {
        x: 4
        width: 10
        height: 16
        radius: 5
        color: "transparent"
        border { width: 2; color: sign.color }
    }
    Rectangle {
        y: 9
        width: 18
        height: 13
        radius: 2
        color: sign.color
    }
}
