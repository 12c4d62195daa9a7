import QtQuick 2.15
import QtQuick.Controls 2.15
import "controls"

/*! What there is to see while an installation holds start-up back. */
ApplicationWindow {
    id: window

    /*! The TaskStatusReceiver of the installation. */
    property var task

    objectName: "installation"
    visible: true
    width: 800
    height: 480
    title: qsTr("Head unit")
    background: Rectangle { color: Look.background }
    font { family: Qt.application.font.family; pixelSize: Look.font }

    Column {
        anchors.centerIn: parent
        width: 480
        spacing: 2 * Look.spacing

        Words {
            objectName: "installationText"
            width: parent.width
            font.pixelSize: Look.fontLarge
            horizontalAlignment: Text.AlignHCenter
            text: qsTr("An update is being installed")
        }
        Progress {
            objectName: "installationProgress"
            width: parent.width
            name: qsTr("Installation")
            to: 100
            value: window.task ? window.task.progress : 0
        }
        Words {
            objectName: "installationPercent"
            width: parent.width
            horizontalAlignment: Text.AlignHCenter
            color: Look.faintText
            text: qsTr("%1 %").arg(window.task ? window.task.progress : 0)
        }
    }
}
