import QtQuick 2.15
import QtQuick.Controls 2.15
import QtQuick.Layouts 1.15
import Hmi.Core 1.0
import hmi.shared 1.0
import "controls"

/*! The licence agreement and the copyrights, as documents of the configured folder. */
ColumnLayout {
    id: page

    readonly property string title: qsTr("Licences")
    property var paragraphs: []

    signal closed()

    /*! Paragraph by paragraph, so that a view lays out no more than it shows. */
    function load() {
        const isLoaded = reader.loadFile(true, true)
        paragraphs = isLoaded ? reader.text.match(/<(h\d|p)>[^]*?<\/\1>/g) || [reader.text] : []
    }

    function show(fileType) {
        reader.fileType = fileType
        load()
        view.positionViewAtBeginning()
    }

    objectName: "licencesPage"
    spacing: Look.spacing
    Component.onCompleted: load()

    EulaReader {
        id: reader

        fileType: EulaReader.FileTypeEula
    }

    Connections {
        target: LanguageManager
        function onCurrentLanguageChanged() { page.load() }
    }

    RowLayout {
        spacing: Look.spacing

        PushButton {
            objectName: "licencesBack"
            text: qsTr("Back")
            onClicked: page.closed()
        }

        PushButton {
            objectName: "licencesAgreement"
            text: qsTr("Licence agreement")
            enabled: reader.fileType !== EulaReader.FileTypeEula
            onClicked: page.show(EulaReader.FileTypeEula)
        }

        PushButton {
            objectName: "licencesCopyrights"
            text: qsTr("Open-source software")
            enabled: reader.fileType !== EulaReader.FileTypeCopyrights
            onClicked: page.show(EulaReader.FileTypeCopyrights)
        }
    }

    Paragraph {
        objectName: "licencesHint"
        text: RestrictedModeManager.restrictedModeOn ? qsTr("Licences are not shown while driving.")
                                                     : qsTr("The document cannot be read.")
        color: Look.warning
        visible: RestrictedModeManager.restrictedModeOn || page.paragraphs.length === 0
        Layout.fillWidth: true
    }

    ListView {
        id: view

        objectName: "licencesText"
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        ScrollBar.vertical: ScrollBar {}
        model: RestrictedModeManager.restrictedModeOn ? [] : page.paragraphs
        delegate: Paragraph {
            objectName: "licencesParagraph" + index
            width: ListView.view.width
            text: modelData
            textFormat: Text.StyledText
            font.pixelSize: Look.fontSmall
            Accessible.name: modelData.replace(/<[^>]*>/g, "")
        }
        Layout.fillWidth: true
        Layout.fillHeight: true

        Accessible.role: Accessible.Document
        Accessible.name: page.title
    }
}
