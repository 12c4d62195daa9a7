import QtQuick 2.15
import QtQuick.Controls 2.15
import QtQuick.Layouts 1.15
import Hmi.Core 1.0
import hmi.shared 1.0
import "controls"

/*! The error reports of the unit, to be exported or deleted together. */
ColumnLayout {
    id: page

    readonly property string title: qsTr("Error reports")
    property ErrorReportModel reports: null
    readonly property int count: reports ? reports.model.count : 0
    property int selectedCount: 0
    property bool isConfirming: false
    property string result: ""

    signal closed()

    function load() {
        const before = reports
        reports = reading.createObject(page)
        if (before)
            before.destroy()
        countSelected()
    }

    function getSelected() {
        const selected = []
        for (let row = 0; row < count; ++row) {
            const report = reports.model.get(row)
            if (report.selected)
                selected.push(report)
        }
        return selected
    }

    function countSelected() {
        selectedCount = getSelected().length
        isConfirming = false
    }

    function selectAll(isSelected) {
        for (let row = 0; row < count; ++row)
            reports.model.get(row).selected = isSelected
        countSelected()
    }

    /*! The report with its log, where that is a file of its own. */
    function filesOf(report) {
        return report.logFile.startsWith("/") ? [report.path, report.logFile] : [report.path]
    }

    function exportSelected() {
        const selected = getSelected()
        const failed = selected.filter(report => !filesOf(report).every(path => reports.copyErrorLog(path))).length
        result = failed ? qsTr("%1 of %2 reports could not be exported").arg(failed).arg(selected.length)
                        : qsTr("Exported reports: %1").arg(selected.length)
        selectAll(false)
    }

    function deleteSelected() {
        const selected = getSelected()
        const failed = selected.filter(report => !filesOf(report).every(path => reports.deleteErrorLog(path))).length
        result = failed ? qsTr("%1 of %2 reports could not be deleted").arg(failed).arg(selected.length)
                        : qsTr("Deleted reports: %1").arg(selected.length)
        load()
    }

    objectName: "errorReportsPage"
    spacing: Look.spacing
    Component.onCompleted: load()

    Component {
        id: reading

        ErrorReportModel {}
    }

    RowLayout {
        spacing: Look.spacing

        PushButton {
            objectName: "errorReportsBack"
            text: qsTr("Back")
            onClicked: page.closed()
        }

        PushButton {
            objectName: "errorReportsSelectAll"
            text: page.selectedCount < page.count ? qsTr("Select all") : qsTr("Select none")
            enabled: page.count > 0
            onClicked: page.selectAll(page.selectedCount < page.count)
        }

        PushButton {
            objectName: "errorReportsExport"
            text: qsTr("Export")
            enabled: page.selectedCount > 0
            restricted: true
            onClicked: page.exportSelected()
        }

        PushButton {
            objectName: "errorReportsDelete"
            text: qsTr("Delete")
            enabled: page.selectedCount > 0
            restricted: true
            onClicked: page.isConfirming = true
        }
    }

    RowLayout {
        spacing: Look.spacing
        visible: page.isConfirming

        Paragraph {
            objectName: "errorReportsQuestion"
            text: qsTr("Delete the selected reports (%1)?").arg(page.selectedCount)
            Layout.fillWidth: true
        }

        PushButton {
            objectName: "errorReportsConfirm"
            text: qsTr("Yes, delete")
            restricted: true
            onClicked: page.deleteSelected()
        }

        PushButton {
            objectName: "errorReportsKeep"
            text: qsTr("Keep")
            onClicked: page.isConfirming = false
        }
    }

    Paragraph {
        objectName: "errorReportsResult"
        text: page.count === 0 && page.result === "" ? qsTr("There are no error reports") : page.result
        color: Look.faintText
        visible: text !== "" && !page.isConfirming
        Layout.fillWidth: true
    }

    ListView {
        objectName: "errorReports"
        clip: true
        spacing: Look.spacing / 2
        boundsBehavior: Flickable.StopAtBounds
        ScrollBar.vertical: ScrollBar {}
        model: page.reports ? page.reports.model : null
        delegate: ErrorReportRow {
            width: ListView.view.width
            onChosen: {
                page.result = ""
                page.countSelected()
            }
        }
        Layout.fillWidth: true
        Layout.fillHeight: true

        Accessible.role: Accessible.List
        Accessible.name: page.title
    }
}
