import QtQuick 2.15
import QtQuick.Controls 2.15
import QtQuick.Layouts 1.15
import hmi.shared 1.0
import "controls"

/*! What the unit and its software are, and its pages: "licences" and "error-reports". */
Screen {
    id: screen

    readonly property var _pages: ({ "licences": "LicencesPage.qml", "error-reports": "ErrorReportsPage.qml" })

    objectName: "systemScreen"
    title: pageLoader.item ? pageLoader.item.title : qsTr("System")

    ProductInfo { id: product }

    ColumnLayout {
        anchors.fill: parent
        spacing: Look.spacing
        visible: pageLoader.source == ""

        RowLayout {
            spacing: Look.spacing

            PushButton {
                objectName: "systemLicences"
                text: qsTr("Licences")
                restricted: true
                onClicked: screen.page = "licences"
            }

            PushButton {
                objectName: "systemErrorReports"
                text: qsTr("Error reports")
                restricted: true
                onClicked: screen.page = "error-reports"
            }
        }

        Flickable {
            id: flickable

            clip: true
            boundsBehavior: Flickable.StopAtBounds
            ScrollBar.vertical: ScrollBar {}
            contentHeight: facts.height
            Layout.fillWidth: true
            Layout.fillHeight: true

            Column {
                id: facts

                width: flickable.width

                Fact {
                    objectName: "systemSoftwareVersion"
                    width: parent.width
                    caption: qsTr("Software")
                    value: product.softwareVersionString
                }

                Fact {
                    objectName: "systemHardwareVersion"
                    width: parent.width
                    caption: qsTr("Circuit board")
                    value: product.hardwareVersion
                }

                Fact {
                    objectName: "systemSerialNumber"
                    width: parent.width
                    caption: qsTr("Serial number")
                    value: product.hardwareEsn
                }

                Fact {
                    objectName: "systemBuild"
                    width: parent.width
                    caption: qsTr("Build")
                    value: SystemInformationManager.getGitDescribe()
                }

                Fact {
                    objectName: "systemCommit"
                    width: parent.width
                    caption: qsTr("Commit")
                    value: SystemInformationManager.getSha()
                }

                Fact {
                    objectName: "systemQtVersion"
                    width: parent.width
                    caption: qsTr("Qt")
                    value: SystemInformationManager.getQtVersion()
                }

                Repeater {
                    model: SystemInformationManager.getInformationNetwork()

                    Fact {
                        objectName: "systemNetwork_" + modelData.name
                        width: parent.width
                        caption: qsTr("Network %1").arg(modelData.name)
                        value: modelData.ipAddresses.length ? modelData.ipAddresses.join(", ") : qsTr("no address")
                    }
                }

                Repeater {
                    model: SystemInformationManager.getInformationSubmodule()

                    Fact {
                        objectName: "systemSubmodule_" + modelData.name
                        width: parent.width
                        caption: qsTr("Module %1").arg(modelData.name)
                        value: `${modelData.gitDescribe} (${modelData.sha})`
                    }
                }
            }
        }
    }

    Loader {
        id: pageLoader

        anchors.fill: parent
        source: screen._pages[screen.page] || ""
    }

    Connections {
        target: pageLoader.item
        function onClosed() { screen.page = "" }
    }
}
