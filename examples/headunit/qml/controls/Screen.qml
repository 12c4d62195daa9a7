import QtQuick 2.15
import "."

/*!
    One screen of the head unit: a bar with its title and the time, below it the content. A screen that has pages
    shows the one whose name is in page.
*/
Item {
    id: screen

    property alias title: title.text
    property string page
    default property alias content: body.data

    objectName: "screen"

    Words {
        id: title

        objectName: "title"
        x: 2 * Look.spacing
        width: parent.width - clock.width - 5 * Look.spacing
        height: 64
        font.pixelSize: Look.fontLarge
        verticalAlignment: Text.AlignVCenter
    }
    Words {
        id: clock

        objectName: "clock"
        anchors { right: parent.right; rightMargin: 2 * Look.spacing }
        height: 64
        font.pixelSize: Look.fontLarge
        verticalAlignment: Text.AlignVCenter
        text: Formats.time(Now.minute)
    }
    Item {
        id: body

        anchors {
            fill: parent
            topMargin: 64
            leftMargin: 2 * Look.spacing
            rightMargin: 2 * Look.spacing
            bottomMargin: Look.spacing
        }
    }
}
