import QtQuick 2.15
import "."

/*! A text to read, which the accessibility tree has under its words. */
Text {
    color: Look.text
    font.pixelSize: Look.font
    elide: Text.ElideRight
    textFormat: Text.PlainText
    Accessible.role: Accessible.StaticText
    Accessible.name: text
}
