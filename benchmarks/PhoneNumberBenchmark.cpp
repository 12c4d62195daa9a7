#include <QRegularExpression>
#include <QString>
#include <benchmark/benchmark.h>
#include <phonenumbers/phonenumberutil.h>

#include <hmi/shared/units/PhoneNumberUtility.h>

using i18n::phonenumbers::PhoneNumber;
using i18n::phonenumbers::PhoneNumberUtil;

static constexpr char sNumber[] = "1.913 742.0662";

static void PhoneNumberFormat(benchmark::State& aState)
{
    const QString number = QLatin1String(sNumber);
    for (auto _ : aState)
        benchmark::DoNotOptimize(Hmi::Shared::PhoneNumberUtility::format(number));
}
BENCHMARK(PhoneNumberFormat);

/** From text to text as well. */
static void LibphonenumberFormat(benchmark::State& aState)
{
    const std::string number = sNumber;
    const PhoneNumberUtil* utility = PhoneNumberUtil::GetInstance();
    for (auto _ : aState) {
        PhoneNumber parsed;
        std::string formatted;
        utility->Parse(number, "US", &parsed);
        utility->Format(parsed, PhoneNumberUtil::NATIONAL, &formatted);
        benchmark::DoNotOptimize(formatted);
    }
}
BENCHMARK(LibphonenumberFormat);

/** Only whether it is a number; the least that any use of a pattern costs. */
static void BareNumberMatch(benchmark::State& aState)
{
    const QString number = QLatin1String(sNumber);
    const QRegularExpression pattern(
        QStringLiteral("^\\+?(?<country>1)?[-. ]*+\\(?[ ]?(?<area>[2-9][0-9]{2})?[ ]?\\)?[-. ]*+"
                       "(?<exchange>[2-9][0-9]{2})[-. ]*+(?<subscriber>[0-9]{4})$"));
    for (auto _ : aState)
        benchmark::DoNotOptimize(pattern.match(number).hasMatch());
}
BENCHMARK(BareNumberMatch);
