#include "Surroundings.h"

#include <QString>

#include <hmi/shared/units/PhoneNumberUtility.h>

using Hmi::Shared::ParsedPhoneNumberNanp;
using Hmi::Shared::PhoneNumberUtility;
using HmiFuzz::require;

namespace {

QString keptOf(const QString& aText, const QString& aKept)
{
    QString kept;
    for (const QChar character : aText)
        if (aKept.contains(character))
            kept += character;
    return kept;
}

bool isCode(const QString& aCode, int aLength)
{
    return aCode.isEmpty() || (aCode.size() == aLength && aCode.at(0) >= QLatin1Char('2') &&
                               keptOf(aCode, QStringLiteral("0123456789")) == aCode);
}

void checkStripping(const QString& aText)
{
    const QString stripped = PhoneNumberUtility::stripSeparators(aText);
    QString changed = aText;
    PhoneNumberUtility::stripSeparators(changed);
    require(stripped == keptOf(aText, QStringLiteral("0123456789#+*wp")), "what can be dialled is left");
    require(changed == stripped, "both ways to strip are one");
}

void checkFormatting(const QString& aText)
{
    const ParsedPhoneNumberNanp parts = PhoneNumberUtility::parseNorthAmericanNumberingPlan(aText);
    const QString text = PhoneNumberUtility::format(aText);
    require(parts.exchangeCode.isEmpty() == parts.subscriberCode.isEmpty(), "a number has its seven digits");
    const QString digits = parts.countryCode + parts.areaCode + parts.exchangeCode + parts.subscriberCode;
    if (parts.subscriberCode.isEmpty()) {
        require(digits.isEmpty() && text == aText, "what is no number is shown as it is");
        return;
    }
    require(parts.countryCode.isEmpty() || parts.countryCode == QLatin1String("1"), "the country is 1");
    require(isCode(parts.areaCode, 3) && isCode(parts.exchangeCode, 3) && parts.subscriberCode.size() == 4,
            "codes have their digits");
    require(keptOf(aText, QStringLiteral("0123456789")) == digits, "no digit is lost, and none is invented");
    require(keptOf(text, QStringLiteral("0123456789")) == digits, "a formatted number is the same number");
    require(PhoneNumberUtility::format(text) == text, "a formatted number stays as it is");
}

} // namespace

// A further choice makes the text UTF-16 as it stands, with halves of characters; UTF-8 otherwise.
int LLVMFuzzerTestOneInput(const std::uint8_t* aData, std::size_t aSize)
{
    HmiFuzz::Input input(aData, aSize);
    const QByteArray bytes = HmiFuzz::takeStretched(input);
    const bool isUtf16 = (input.choose() & 1) != 0;
    const QString text =
        isUtf16 ? QString::fromUtf16(reinterpret_cast<const char16_t*>(bytes.constData()), bytes.size() / 2)
                : QString::fromUtf8(bytes);
    const HmiFuzz::Quick quick;
    HmiFuzz::Warnings warnings;
    checkStripping(text);
    checkFormatting(text);
    require(warnings.takeCount() == 0, "nothing is logged");
    return 0;
}
