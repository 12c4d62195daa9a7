import QtQuick 2.15
import "controls"

Screen {
    title: qsTr("System")
}
