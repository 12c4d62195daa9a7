pragma Singleton
import QtQml 2.15
import Hmi.Core 1.0
import hmi.shared 1.0

/*!
    Values as the user reads them: in the units, formats and the language of the settings. A value that is not known
    (not a number) is a dash.
*/
QtObject {
    readonly property string unknown: "–"
    readonly property var locale: Qt.locale(LanguageManager.languageCode)
    readonly property bool metric: SettingsManager.distanceUnit.value === MeasurementUnits.UnitDistanceKilometer
    readonly property string speedUnit: metric ? qsTr("km/h") : qsTr("mph")
    readonly property bool celsius:
        SettingsManager.temperatureUnit.value === MeasurementUnits.UnitTemperatureCelsius

    readonly property int _speedUnit:
        metric ? MeasurementUnits.UnitSpeedKilometersPerHour : MeasurementUnits.UnitSpeedMilesPerHour
    readonly property int _longUnit:
        metric ? MeasurementUnits.UnitDistanceKilometer : MeasurementUnits.UnitDistanceMile

    function number(value, decimals) { return Number(value).toLocaleString(locale, "f", decimals) }

    /*! A number that is whole already. */
    function whole(value) { return isNaN(value) ? unknown : number(value, 0) }

    /*! The number to show, in the unit of speedUnit: it changes less often than the speed. */
    function speed(kilometresPerHour) {
        return Math.round(MeasurementUnits.convertSpeed(
            kilometresPerHour, MeasurementUnits.UnitSpeedKilometersPerHour, _speedUnit))
    }

    /*! In the unit and to the step that suit its size. */
    function distance(metres) {
        if (isNaN(metres))
            return unknown
        const unit = MeasurementUnits.getDisplayedUnitDistance(metres, MeasurementUnits.UnitDistanceMeter, metric, false)
        const value = MeasurementUnits.convertDistance(metres, MeasurementUnits.UnitDistanceMeter, unit)
        const step = MeasurementUnits.getDisplayedPrecisionDistance(value, unit)
        return _withUnit(number(Math.round(value / step) * step, step < 1 ? 1 : 0), unit)
    }

    /*! As an odometer shows it: whole kilometres or miles, the last one completed. */
    function odometer(metres) {
        return isNaN(metres) ? unknown : _withUnit(number(Math.floor(MeasurementUnits.convertDistance(
            metres, MeasurementUnits.UnitDistanceMeter, _longUnit)), 0), _longUnit)
    }

    function temperature(degreesCelsius) {
        if (isNaN(degreesCelsius))
            return unknown
        const unit = celsius ? MeasurementUnits.UnitTemperatureCelsius : MeasurementUnits.UnitTemperatureFahrenheit
        const value = MeasurementUnits.convertTemperature(degreesCelsius, MeasurementUnits.UnitTemperatureCelsius, unit)
        return (celsius ? qsTr("%1 °C") : qsTr("%1 °F")).arg(number(Math.round(value), 0))
    }

    function time(moment) { return _moment(moment, SettingsManager.timeFormat.value) }

    function date(moment) { return _moment(moment, SettingsManager.dateFormat.value) }

    function _moment(moment, pattern) {
        return HmiShared.formatDateTime(moment, pattern, false, 0, LanguageManager.languageCode)
    }

    function _withUnit(text, unit) {
        switch (unit) {
        case MeasurementUnits.UnitDistanceMeter: return qsTr("%1 m").arg(text)
        case MeasurementUnits.UnitDistanceKilometer: return qsTr("%1 km").arg(text)
        case MeasurementUnits.UnitDistanceFeet: return qsTr("%1 ft").arg(text)
        default: return qsTr("%1 mi").arg(text)
        }
    }
}
