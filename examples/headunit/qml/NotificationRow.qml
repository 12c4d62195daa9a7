import QtQuick 2.15
import QtQuick.Layouts 1.15
import "controls"

/*! One notification: what it is about, how urgent it is, and the way to be rid of it. */
Rectangle {
    id: row

    /*! The service asked for this one. */
    property bool isShown: false

    signal dismissed()

    objectName: "notification" + model.notificationId
    height: 1.5 * Look.rowHeight
    radius: Look.radius
    color: Look.surface
    border { width: isShown ? 2 : 0; color: Look.accent }

    Accessible.role: Accessible.ListItem
    Accessible.name: `${model.notificationType}: ${model.description}`

    RowLayout {
        anchors { fill: parent; leftMargin: Look.spacing; rightMargin: Look.spacing }
        spacing: Look.spacing

        ColumnLayout {
            spacing: 0

            Words {
                objectName: row.objectName + "Description"
                text: model.description
                Layout.fillWidth: true
            }

            Words {
                objectName: row.objectName + "Type"
                text: model.isLocationValid
                      ? qsTr("%1 at %2°, %3°").arg(model.notificationType).arg(model.latitude.toFixed(3)).arg(
                            model.longitude.toFixed(3))
                      : model.notificationType
                font.pixelSize: Look.fontSmall
                color: Look.faintText
                Layout.fillWidth: true
            }
        }

        Words {
            objectName: row.objectName + "Priority"
            text: qsTr("Priority %1").arg(model.priority)
            font.pixelSize: Look.fontSmall
            color: model.priority > 0 ? Look.warning : Look.faintText
        }

        PushButton {
            objectName: row.objectName + "Dismiss"
            text: qsTr("Dismiss")
            Accessible.name: qsTr("Dismiss %1").arg(model.description)
            onClicked: row.dismissed()
        }
    }
}
