import QtQuick 2.15
import QtQuick.Controls 2.15

/*! What any product with controls has at least. */
ApplicationWindow {
    visible: true
    width: 800
    height: 480
}
