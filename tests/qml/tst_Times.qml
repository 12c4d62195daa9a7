import QtQuick 2.15
import QtTest 1.15
import hmi.shared 1.0

TestCase {
    name: "Times"

    readonly property int bound: duration.durationInMilliseconds

    function test_datesOfJavaScriptAreFormattedAndCounted() {
        const date = new Date(2014, 6, 4, 15, 9);
        const texts = {
            Date: "July 4, 2014", Day: "Fri", DayFull: "Friday", DayMonthLongYear: "04/07/2014", DayNumber: "4", Hour24: "15",
            HourAmPm: "3 pm", HourMinute24: "15:09", HourMinuteMeridian: "3:09 pm", LongYearMonthDay: "2014/07/04", Month: "Jul",
            MonthDayLongYear: "07/04/2014", MonthDayYear: "07/04/14", MonthFull: "July", YearFull: "2014"
        };
        for (const name in texts)
            compare(HmiShared.formatDateTime(date, HmiShared["format" + name], false, 3600, "en_US"), texts[name]);
        compare(HmiShared.formatDateTime(date, "hh:mm"), HmiShared.formatDateTime(date, "hh:mm", false));
        compare(HmiShared.formatDateTime(new Date(Date.UTC(2014, 11, 9, 15, 19)), "hh:mm t", true, -18000), "10:19 UTC");
        compare(HmiShared.formatDateTime(dateTime.dateTime, "yyyy", true), "");
        compare(HmiShared.convertLanguage("en_GB"), HmiShared.convertLanguage("en_US"));
        for (const offset of [[], [-43200], [50400]])
            compare(HmiShared.daysToToday(new Date(1970, 0, 1), ...offset), Math.floor((Date.now() / 1000 + (offset[0] || 0)) / 86400));
    }

    function test_utcOffsetIsAnnouncedFromTheEventLoop() {
        HmiShared.utcOffset = 3600;
        HmiShared.utcOffset = 3600;
        compare([HmiShared.utcOffset, offsetSpy.count], [3600, 0]);
        tryCompare(offsetSpy, "count", 1);
        HmiShared.utcOffset = undefined;
        compare([HmiShared.utcOffset, offsetSpy.count], [0, 1]);
        tryCompare(offsetSpy, "count", 2);
    }

    function test_aWrittenDurationReachesItsBindings() {
        for (const [name, written, total] of [
                 ["Milliseconds", 912, 912], ["Seconds", -777, -777000], ["Minutes", 120.9, 7200000], ["Days", 1.5, 86400000],
                 ["Days", -0.9, 0], ["Minutes", 1e300, -60000], ["Hours", 7, 25200000], ["Hours", NaN, 0]]) {
            durationSpy.clear();
            duration["durationIn" + name] = written;
            compare([bound, durationSpy.count], [total, 1], name);
        }
        duration.setDuration(2, 25, 1, -30, 1200);
        compare([duration.daysPortion, duration.hoursPortion, duration.minutesPortion, duration.secondsPortion], [3, 1, 1, -29]);
    }

    TimeDuration { id: duration }
    DateTime { id: dateTime }
    SignalSpy { id: durationSpy; target: duration; signalName: "durationChanged" }
    SignalSpy { id: offsetSpy; target: HmiShared; signalName: "utcOffsetChanged" }
}
