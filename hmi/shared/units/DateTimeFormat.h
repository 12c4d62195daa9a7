#pragma once

#include <QLatin1String>
#include <QLocale>
#include <QString>

namespace Hmi::Shared {

/** QLatin1String counts its characters at run time unless it is told how many they are. */
template <int Size>
constexpr QLatin1String latin1Literal(const char (&aText)[Size])
{
    return QLatin1String(aText, Size - 1);
}

/**
 * The patterns in which the HMI shows dates and times, in the syntax of QDateTime::toString(), and the
 * languages that it shows them in. HmiSharedGlobal publishes them to QML.
 */
class Q_DECL_EXPORT DateTimeFormat
{
public:
    static constexpr QLatin1String FormatDate = latin1Literal("MMMM d, yyyy");
    static constexpr QLatin1String FormatDay = latin1Literal("ddd");
    static constexpr QLatin1String FormatDayFull = latin1Literal("dddd");
    static constexpr QLatin1String FormatDayMonthLongYear = latin1Literal("dd/MM/yyyy");
    static constexpr QLatin1String FormatDayNumber = latin1Literal("d");
    static constexpr QLatin1String FormatHour24 = latin1Literal("h");
    static constexpr QLatin1String FormatHourAmPm = latin1Literal("h ap");
    static constexpr QLatin1String FormatHourMinute24 = latin1Literal("h:mm");
    static constexpr QLatin1String FormatHourMinuteMeridian = latin1Literal("h:mm ap");
    static constexpr QLatin1String FormatLongYearMonthDay = latin1Literal("yyyy/MM/dd");
    static constexpr QLatin1String FormatMonth = latin1Literal("MMM");
    static constexpr QLatin1String FormatMonthDayLongYear = latin1Literal("MM/dd/yyyy");
    static constexpr QLatin1String FormatMonthDayYear = latin1Literal("MM/dd/yy");
    static constexpr QLatin1String FormatMonthFull = latin1Literal("MMMM");
    static constexpr QLatin1String FormatYearFull = latin1Literal("yyyy");

    /** QLocale::AnyLanguage for a code that the table of languages does not have. */
    static QLocale::Language languageOf(const QString& aCode);
};

} // namespace Hmi::Shared
