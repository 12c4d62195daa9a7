import QtQuick 2.15
import QtQuick.Controls 2.15
import "controls"

/*! One error report, which a touch selects. */
CheckDelegate {
    id: row

    readonly property string fileName: model.path.substring(model.path.lastIndexOf("/") + 1)

    signal chosen()

    objectName: "errorReport_" + fileName
    height: 1.5 * Look.rowHeight
    text: model.processName === "" ? qsTr("unreadable report") : model.processName
    checked: model.selected
    onToggled: {
        model.selected = checked
        chosen()
    }

    Accessible.name: `${text}, ${fileName}`

    background: Rectangle { radius: Look.radius; color: Look.surface }
    indicator: Rectangle {
        x: row.width - width - Look.spacing
        y: (row.height - height) / 2
        width: 28
        height: 28
        color: row.checked ? Look.accent : "transparent"
        border { width: 2; color: row.checked ? Look.accent : Look.faintText }

        Text {
            anchors.centerIn: parent
            text: "✓"
            visible: row.checked
            color: Look.accentText
            font.pixelSize: Look.font
        }
    }
    contentItem: Column {
        Words {
            objectName: row.objectName + "Process"
            width: row.availableWidth - 40
            text: row.text
        }

        Words {
            objectName: row.objectName + "Details"
            width: row.availableWidth - 40
            text: [model.product, model.unitId, row.fileName].filter(part => part !== "").join(" · ")
            font.pixelSize: Look.fontSmall
            color: Look.faintText
        }
    }
}
