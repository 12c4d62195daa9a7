import QtQuick 2.15
import QtQuick.Controls 2.15

/*! The least that makes fonts, textures and compiled shaders necessary. */
ApplicationWindow {
    visible: true
    width: 800
    height: 480

    Rectangle { width: 136; height: parent.height; color: "black" }
    Text { anchors.centerIn: parent; font.pixelSize: 28; text: "88" }
}
