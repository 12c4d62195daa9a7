import QtQuick 2.15
import headunit 1.0
import "controls"

/*! What the driver looks at: few items, and each text made only when what it shows changes. */
Screen {
    id: drive

    readonly property double _speed: Vehicle.online ? Formats.speed(Vehicle.speed) : NaN

    title: Formats.date(Now.minute)

    component Reading: Column {
        property alias caption: caption.text
        property alias text: value.text

        spacing: 4
        width: 142

        Words {
            id: caption

            width: parent.width
            color: Look.faintText
            font.pixelSize: Look.fontSmall
        }
        Words {
            id: value

            width: parent.width
            font.pixelSize: Look.fontLarge
            objectName: parent.objectName + "Value"
            Accessible.description: caption.text
        }
    }

    /*! A value of the vehicle, where its line stands and the value is known. */
    function known(value) { return Vehicle.online && value >= 0 ? value : NaN }

    Words {
        id: speed

        objectName: "speed"
        anchors { horizontalCenter: parent.horizontalCenter; top: parent.top; topMargin: 24 }
        font.pixelSize: 2 * Look.fontHuge
        text: Formats.whole(drive._speed)
        Accessible.description: qsTr("Speed")
    }
    Words {
        objectName: "speedUnit"
        anchors { left: speed.right; leftMargin: Look.spacing; baseline: speed.baseline }
        color: Look.faintText
        text: Formats.speedUnit
    }
    Words {
        objectName: "gear"
        anchors { left: parent.left; baseline: speed.baseline }
        font.pixelSize: Look.fontHuge
        text: Vehicle.gear === "" ? Formats.unknown : Vehicle.gear
        color: Look.accent
        Accessible.description: qsTr("Gear")
    }
    Words {
        objectName: "lineLost"
        anchors { horizontalCenter: parent.horizontalCenter; top: speed.bottom }
        visible: !Vehicle.online
        color: Look.warning
        text: qsTr("No connection to the vehicle")
    }

    Reading {
        objectName: "airTemperature"
        anchors { right: parent.right; bottom: speed.bottom; bottomMargin: 28 }
        width: 100
        caption: qsTr("Outside")
        text: Formats.temperature(Vehicle.online ? Vehicle.airTemperature : NaN)
    }

    Row {
        anchors { left: parent.left; right: parent.right; bottom: parent.bottom; bottomMargin: 2 * Look.spacing }
        spacing: Look.spacing

        Reading { objectName: "range"; caption: qsTr("Range"); text: Formats.distance(drive.known(Vehicle.fuelRange)) }
        Reading { objectName: "trip"; caption: qsTr("Trip"); text: Formats.distance(drive.known(Vehicle.tripDistance)) }
        Reading {
            objectName: "driven"
            caption: qsTr("Since start")
            text: Formats.distance(drive.known(Vehicle.drivenDistance))
        }
        Reading {
            objectName: "odometer"
            width: 154
            caption: qsTr("Odometer")
            text: Formats.odometer(drive.known(Vehicle.odometer > 0 ? Vehicle.odometer : NaN))
        }
    }
}
