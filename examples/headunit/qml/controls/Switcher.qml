import QtQuick 2.15
import QtQuick.Controls 2.15
import "."

/*! A switch, on or off. */
Switch {
    property string name

    implicitHeight: 44
    Accessible.name: name
    palette.window: checked ? Look.surface : Look.faintText
}
