import QtQuick 2.15
import QtQuick.Controls 2.15
import Hmi.Core 1.0
import headunit 1.0
import hmi.shared 1.0
import "controls"

/*! The settings of the active user profile. */
Screen {
    title: qsTr("Settings")

    /*! A row for one setting: a choice of its values. */
    component SettingRow: TextRow {
        id: row

        required property string setting
        property alias model: choice.model

        width: parent.width

        Choice {
            id: choice

            objectName: row.setting
            name: row.caption
            value: SettingsManager[row.setting].value
            onChosen: SettingsManager[row.setting].value = value
        }
    }

    Flickable {
        id: rows

        objectName: "rows"
        anchors.fill: parent
        clip: true
        contentHeight: column.height
        boundsBehavior: Flickable.StopAtBounds
        ScrollBar.vertical: ScrollBar {}

        Column {
            id: column

            width: parent.width - 2 * Look.spacing

            SettingRow {
                setting: "distanceUnit"
                caption: qsTr("Distances")
                model: [{ text: qsTr("Kilometres"), value: MeasurementUnits.UnitDistanceKilometer },
                        { text: qsTr("Miles"), value: MeasurementUnits.UnitDistanceMile }]
            }
            SettingRow {
                setting: "temperatureUnit"
                caption: qsTr("Temperatures")
                model: [{ text: qsTr("Celsius"), value: MeasurementUnits.UnitTemperatureCelsius },
                        { text: qsTr("Fahrenheit"), value: MeasurementUnits.UnitTemperatureFahrenheit }]
            }
            SettingRow {
                setting: "timeFormat"
                caption: qsTr("Time")
                model: [{ text: qsTr("24 hours"), value: HmiShared.formatHourMinute24 },
                        { text: qsTr("12 hours"), value: HmiShared.formatHourMinuteMeridian }]
            }
            SettingRow {
                setting: "dateFormat"
                caption: qsTr("Date")
                model: [HmiShared.formatMonthDayLongYear, HmiShared.formatDayMonthLongYear, "dd.MM.yyyy",
                        HmiShared.formatLongYearMonthDay].map(pattern => ({
                            text: HmiShared.formatDateTime(Now.minute, pattern), value: pattern }))
            }
            SettingRow {
                setting: "languageText"
                caption: qsTr("Language")
                model: [{ text: "English", value: "en_US" }].concat(LanguageManager.availableLanguages.map(
                    code => ({ text: Qt.locale(code).nativeLanguageName, value: code })))
            }
            SettingRow {
                setting: "theme"
                caption: qsTr("Theme")
                model: [{ text: qsTr("Automatic"), value: Appearance.ThemeAutomatic },
                        { text: qsTr("Day"), value: Appearance.ThemeDay },
                        { text: qsTr("Night"), value: Appearance.ThemeNight }]
            }
            TextRow {
                width: parent.width
                caption: qsTr("Guidance volume")

                Words {
                    objectName: "guidanceVolumeValue"
                    anchors.verticalCenter: parent.verticalCenter
                    text: GuidanceVolume.volume
                }
                Level {
                    objectName: "guidanceVolume"
                    name: qsTr("Guidance volume")
                    from: GuidanceVolume.volumeMinimum
                    to: GuidanceVolume.volumeMaximum
                    stepSize: GuidanceVolume.volumeIncrement
                    value: GuidanceVolume.volume
                    onMoved: GuidanceVolume.volume = value
                }
            }
            TextRow {
                width: parent.width
                caption: qsTr("Mute the guidance")

                Switcher {
                    objectName: "guidanceMuted"
                    name: qsTr("Mute the guidance")
                    checked: GuidanceVolume.muted
                    onToggled: GuidanceVolume.muted = checked
                }
            }
            Loader {
                width: parent.width
                active: HmiShared.dataManagerEnabled
                source: "ProfileRows.qml"
            }
        }
    }
}
