import QtQuick 2.15
import QtQuick.Controls 2.15
import "."

/*! A slider. */
Slider {
    property string name

    implicitWidth: 280
    implicitHeight: 44
    Accessible.name: name
    palette.window: Look.accent
}
