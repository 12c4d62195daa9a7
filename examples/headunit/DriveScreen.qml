import QtQuick 2.15
import QtQuick.Window 2.15
import Hmi.Core 1.0
import hmi.shared 1.0
import headunit 1.0

Window {
    id: window

    visible: true
    width: 800
    height: 480
    color: "#101418"
    title: qsTr("Drive")

    component Value: Column {
        property alias caption: caption.text
        property alias text: value.text

        spacing: 4
        Text { id: caption; color: "#8fa3b0"; font.pixelSize: 20 }
        Text { id: value; color: "white"; font.pixelSize: 44 }
    }

    RxSignalProxy {
        id: speed

        property real kilometresPerHour: 0

        path: "Vehicle.Speed"
        onValueUpdated: if (status === 0) kilometresPerHour = value
        Component.onCompleted: requestUpdates()
    }

    Grid {
        anchors.centerIn: parent
        columns: 2
        columnSpacing: 120
        rowSpacing: 40

        Value { caption: qsTr("Speed"); text: qsTr("%1 km/h").arg(Math.round(speed.kilometresPerHour)) }
        Value { caption: qsTr("Gear"); text: Vehicle.gear === "" ? "–" : Vehicle.gear }
        Value {
            caption: qsTr("Range")
            text: Vehicle.fuelRange < 0 ? "–" : qsTr("%1 km").arg(Math.round(Vehicle.fuelRange / 1000))
        }
        Value { caption: qsTr("Odometer"); text: qsTr("%1 km").arg(Math.floor(Vehicle.odometer / 1000)) }
        Value { caption: qsTr("Vehicle"); text: Vehicle.vehicleMoving ? qsTr("moving") : qsTr("standing") }
        Value {
            caption: qsTr("Input")
            text: RestrictedModeManager.restrictedModeOn ? qsTr("restricted") : qsTr("free")
        }
    }
}
