import QtQuick 2.15
import QtQuick.Controls 2.15
import Hmi.Core 1.0
import hmi.shared 1.0
import "controls"

/*! The product's screens, one button each, and the sign of restricted mode. */
Rectangle {
    width: 136
    color: Look.surface

    Column {
        width: parent.width

        Repeater {
            model: AppManager.apps

            AbstractButton {
                id: button

                readonly property bool current: AppManager.currentApp.name === modelData.name

                objectName: modelData.name
                width: parent.width
                height: 80
                text: qsTranslate("Apps", modelData.title)
                Accessible.selected: current
                onClicked: AppManager.show(modelData.name)

                contentItem: Text {
                    text: button.text
                    font: button.font
                    color: button.current ? Look.accentText : Look.text
                    elide: Text.ElideRight
                    horizontalAlignment: Text.AlignHCenter
                    verticalAlignment: Text.AlignVCenter
                }
                background: Rectangle {
                    color: button.current ? Look.accent : button.down ? Look.raised : Look.surface
                }
            }
        }
    }

    Column {
        anchors { bottom: parent.bottom; bottomMargin: Look.spacing; horizontalCenter: parent.horizontalCenter }
        spacing: 4
        visible: RestrictedModeManager.restrictedModeOn

        LockSign { anchors.horizontalCenter: parent.horizontalCenter }
        Words {
            objectName: "restricted"
            text: qsTr("Restricted")
            font.pixelSize: Look.fontSmall
            color: Look.warning
        }
    }
}
