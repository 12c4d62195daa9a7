#include <hmi/shared/units/PhoneNumberUtility.h>

#include <QRegularExpression>
#include <QStringBuilder>
#include <algorithm>

namespace Hmi::Shared {

/**
 * Compiled on first use. The runs of separators are possessive: what they could give back would only be
 * taken by the other optional blanks, and trying that makes the time grow with the square of the run.
 */
static const QRegularExpression& numberingPlan()
{
    static const QRegularExpression sPattern(
        QStringLiteral("^\\+?(?<country>1)?[-. ]*+\\(?[ ]?(?<area>[2-9][0-9]{2})?[ ]?\\)?[-. ]*+"
                       "(?<exchange>[2-9][0-9]{2})[-. ]*+(?<subscriber>[0-9]{4})$"));
    return sPattern;
}

static bool isSeparator(QChar aCharacter)
{
    const ushort code = aCharacter.unicode();
    const bool digit = code >= '0' && code <= '9';
    return !digit && code != '#' && code != '+' && code != '*' && code != 'w' && code != 'p';
}

PhoneNumberUtility::PhoneNumberUtility(QQmlEngine*, QJSEngine*)
{
    qRegisterMetaType<ParsedPhoneNumberNanp>();
}

void PhoneNumberUtility::stripSeparators(QString& a_number)
{
    const auto end = std::remove_if(a_number.begin(), a_number.end(), isSeparator);
    a_number.truncate(static_cast<int>(end - a_number.begin()));
}

QString PhoneNumberUtility::stripSeparators(const QString& a_number)
{
    QString number = a_number;
    stripSeparators(number);
    return number;
}

ParsedPhoneNumberNanp PhoneNumberUtility::parseNorthAmericanNumberingPlan(const QString& a_number)
{
    const QRegularExpressionMatch match = numberingPlan().match(a_number);
    return {match.captured(1), match.captured(2), match.captured(3), match.captured(4)};
}

QString PhoneNumberUtility::format(const QString& a_number)
{
    const ParsedPhoneNumberNanp parsed = parseNorthAmericanNumberingPlan(a_number);
    if (parsed.subscriberCode.isEmpty())
        return a_number;
    QString text;
    if (!parsed.countryCode.isEmpty())
        text += parsed.countryCode % QLatin1Char(' ');
    if (!parsed.areaCode.isEmpty())
        text += QLatin1Char('(') % parsed.areaCode % QLatin1String(") ");
    return text % parsed.exchangeCode % QLatin1Char('-') % parsed.subscriberCode;
}

} // namespace Hmi::Shared
