import QtQuick 2.15
import QtQuick.Controls 2.15
import "."

/*!
    A choice of one of a list: the model's objects have a text and a value.

        Choice {
            name: qsTr("Distances")
            model: [{ text: qsTr("Miles"), value: 4 }, { text: qsTr("Kilometres"), value: 1 }]
            value: SettingsManager.distanceUnit.value
            onChosen: SettingsManager.distanceUnit.value = value
        }
*/
ComboBox {
    id: choice

    /*! What is chosen; none when the model has no such value. */
    property var value
    property string name

    /*! The user chose another value; whoever listens sets it. */
    signal chosen(var value)

    implicitWidth: 280
    implicitHeight: 44
    textRole: "text"
    valueRole: "value"
    Accessible.name: name
    Accessible.description: displayText

    background: Rectangle {
        radius: Look.radius
        color: Look.raised
        border { width: choice.visualFocus || choice.down ? 2 : 0; color: Look.accent }
    }

    onActivated: {
        chosen(currentValue)
        _showValue()
    }
    onValueChanged: _showValue()
    onModelChanged: _showValue()
    Component.onCompleted: _showValue()

    function _showValue() { currentIndex = indexOfValue(value) }
}
