import QtQuick 2.15
import QtQuick.Layouts 1.15
import Hmi.Core 1.0
import hmi.shared 1.0
import "controls"

/*! The software update in each of its states, with what the driver may do in it. */
Screen {
    id: screen

    readonly property int updateState: SystemUpdateManager.state
    readonly property bool isAway: !SystemUpdateManager.serviceAvailable
    readonly property bool isInstalling: [SystemUpdateManager.UpdateStateVerifying,
        SystemUpdateManager.UpdateStateInstalling, SystemUpdateManager.UpdateStateValidating].includes(updateState)
    readonly property bool isDownload: [SystemUpdateManager.UpdateStateDownloading,
        SystemUpdateManager.UpdateStateDownloadPaused].includes(updateState)
    readonly property int percent: isDownload ? SystemUpdateManager.percent : SystemUpdateManager.installPercent
    /*! No service answers to a check that finds nothing. */
    property bool hasChecked: false
    property bool isStalled: false

    function describeState() {
        switch (updateState) {
        case SystemUpdateManager.UpdateStateNoneAvailable:
            return checking.running ? qsTr("Looking for an update…")
                                    : hasChecked ? qsTr("No update was found") : qsTr("There is no update")
        case SystemUpdateManager.UpdateStateUpdateDownloadable: return qsTr("An update can be downloaded")
        case SystemUpdateManager.UpdateStateDownloading: return qsTr("Downloading")
        case SystemUpdateManager.UpdateStateDownloadPaused: return qsTr("The download is paused")
        case SystemUpdateManager.UpdateStateUpdateAvailable: return qsTr("An update can be installed")
        case SystemUpdateManager.UpdateStateVerifying: return qsTr("Verifying the update")
        case SystemUpdateManager.UpdateStateInstalling: return qsTr("Installing")
        case SystemUpdateManager.UpdateStateValidating: return qsTr("Checking the installation")
        case SystemUpdateManager.UpdateStateValidationComplete: return qsTr("The installation was checked")
        case SystemUpdateManager.UpdateStateUpdateComplete: return qsTr("The update is installed")
        case SystemUpdateManager.UpdateStateUpdateError: return qsTr("The update could not be installed")
        }
        return ""
    }

    function describeHint() {
        if (isAway)
            return qsTr("The update service is away. Updates go on when it is back.")
        if (isStalled && isInstalling)
            return qsTr("There was no progress for a while.")
        if (isInstalling)
            return qsTr("Please leave the ignition on.")
        if (RestrictedModeManager.restrictedModeOn && (installButton.visible || retryButton.visible))
            return qsTr("Updates are not installed while driving.")
        return ""
    }

    function describeSize(bytes) {
        const size = bytes >>> 0 // the low 32 bits of what the service told
        return size === 0 ? Formats.unknown : qsTr("%1 MB").arg(Formats.number(size / 1e6, 1))
    }

    function showProgress() {
        isStalled = false
        patience.restart()
    }

    function cancel() {
        SystemUpdateManager.pauseDownload()
        SystemUpdateManager.resetUpdateProcess()
    }

    objectName: "updateScreen"
    title: qsTr("Update")

    onUpdateStateChanged: {
        hasChecked = false
        checking.stop()
        showProgress()
    }
    onPercentChanged: showProgress()

    Timer {
        id: checking

        interval: 5000
        onTriggered: screen.hasChecked = true
    }

    Timer {
        id: patience

        interval: 30000
        running: screen.isInstalling
        onTriggered: screen.isStalled = true
    }

    ColumnLayout {
        anchors.fill: parent
        spacing: Look.spacing

        Paragraph {
            objectName: "updateState"
            text: screen.describeState()
            font.pixelSize: Look.fontLarge
            color: screen.updateState === SystemUpdateManager.UpdateStateUpdateError ? Look.warning : Look.text
            Layout.fillWidth: true
        }

        Paragraph {
            objectName: "updateHint"
            text: screen.describeHint()
            visible: text !== ""
            color: screen.isAway || screen.isStalled ? Look.warning : Look.faintText
            Layout.fillWidth: true
        }

        TextRow {
            objectName: "updateVersion"
            caption: qsTr("Version")
            value: SystemUpdateManager.version === "" ? Formats.unknown : SystemUpdateManager.version
            visible: screen.updateState !== SystemUpdateManager.UpdateStateNoneAvailable
            Layout.fillWidth: true
        }

        TextRow {
            objectName: "updateSize"
            caption: qsTr("Size")
            value: screen.describeSize(SystemUpdateManager.downloadSize)
            visible: screen.isDownload || downloadButton.visible
            Layout.fillWidth: true
        }

        TextRow {
            objectName: "updatePercent"
            caption: qsTr("Progress")
            value: qsTr("%1 %").arg(screen.percent)
            visible: progress.visible
            Layout.fillWidth: true
        }

        Progress {
            id: progress

            objectName: "updateProgress"
            from: 0
            to: 100
            value: screen.percent
            visible: screen.isDownload || screen.isInstalling
            name: qsTr("Progress")
            Layout.fillWidth: true
        }

        Item { Layout.fillHeight: true }

        RowLayout {
            spacing: Look.spacing

            PushButton {
                objectName: "updateCheck"
                text: qsTr("Check for updates")
                visible: screen.updateState === SystemUpdateManager.UpdateStateNoneAvailable
                enabled: !screen.isAway && !checking.running
                onClicked: {
                    checking.restart()
                    SystemUpdateManager.checkForUpdates()
                }
            }

            PushButton {
                id: downloadButton

                objectName: "updateDownload"
                text: qsTr("Download")
                visible: screen.updateState === SystemUpdateManager.UpdateStateUpdateDownloadable
                enabled: !screen.isAway
                onClicked: SystemUpdateManager.startDownload()
            }

            PushButton {
                objectName: "updatePause"
                text: qsTr("Pause")
                visible: screen.updateState === SystemUpdateManager.UpdateStateDownloading
                enabled: !screen.isAway
                onClicked: SystemUpdateManager.pauseDownload()
            }

            PushButton {
                objectName: "updateResume"
                text: qsTr("Resume")
                visible: screen.updateState === SystemUpdateManager.UpdateStateDownloadPaused
                enabled: !screen.isAway
                onClicked: SystemUpdateManager.resumeDownload()
            }

            PushButton {
                objectName: "updateCancel"
                text: qsTr("Cancel")
                visible: screen.isDownload
                onClicked: screen.cancel()
            }

            PushButton {
                id: installButton

                objectName: "updateInstall"
                text: qsTr("Install")
                visible: screen.updateState === SystemUpdateManager.UpdateStateUpdateAvailable
                enabled: !screen.isAway
                restricted: true
                onClicked: SystemUpdateManager.startInstallation()
            }

            PushButton {
                id: retryButton

                objectName: "updateRetry"
                text: qsTr("Try again")
                visible: screen.updateState === SystemUpdateManager.UpdateStateUpdateError
                enabled: !screen.isAway
                restricted: true
                onClicked: SystemUpdateManager.retryInstallation()
            }

            PushButton {
                objectName: "updateGiveUp"
                text: qsTr("Wait no longer")
                visible: screen.isInstalling && (screen.isAway || screen.isStalled)
                onClicked: SystemUpdateManager.resetUpdateProcess()
            }

            PushButton {
                objectName: "updateLater"
                text: qsTr("Later")
                visible: downloadButton.visible
                onClicked: SystemUpdateManager.resetUpdateProcess()
            }

            PushButton {
                objectName: "updateDone"
                text: qsTr("Done")
                visible: retryButton.visible || screen.updateState === SystemUpdateManager.UpdateStateUpdateComplete
                         || screen.updateState === SystemUpdateManager.UpdateStateValidationComplete
                onClicked: SystemUpdateManager.resetUpdateProcess()
            }
        }
    }
}
