#pragma once

#include <QLatin1String>
#include <QLocale>
#include <QString>

namespace Hmi::Shared {

/**
 * The patterns in which the HMI shows dates and times, in the syntax of QDateTime::toString(), and the
 * languages that it shows them in. HmiSharedGlobal publishes them to QML.
 */
class Q_DECL_EXPORT DateTimeFormat
{
public:
    static constexpr QLatin1String FormatDate{"MMMM d, yyyy"};
    static constexpr QLatin1String FormatDay{"ddd"};
    static constexpr QLatin1String FormatDayFull{"dddd"};
    static constexpr QLatin1String FormatDayMonthLongYear{"dd/MM/yyyy"};
    static constexpr QLatin1String FormatDayNumber{"d"};
    static constexpr QLatin1String FormatHour24{"h"};
    static constexpr QLatin1String FormatHourAmPm{"h ap"};
    static constexpr QLatin1String FormatHourMinute24{"h:mm"};
    static constexpr QLatin1String FormatHourMinuteMeridian{"h:mm ap"};
    static constexpr QLatin1String FormatLongYearMonthDay{"yyyy/MM/dd"};
    static constexpr QLatin1String FormatMonth{"MMM"};
    static constexpr QLatin1String FormatMonthDayLongYear{"MM/dd/yyyy"};
    static constexpr QLatin1String FormatMonthDayYear{"MM/dd/yy"};
    static constexpr QLatin1String FormatMonthFull{"MMMM"};
    static constexpr QLatin1String FormatYearFull{"yyyy"};

    /** QLocale::AnyLanguage for a code that the table of languages does not have. */
    static QLocale::Language languageOf(const QString& aCode);
};

} // namespace Hmi::Shared
