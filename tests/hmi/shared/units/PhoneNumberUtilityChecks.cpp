#include <hmi/shared/units/PhoneNumberUtility.h>

#include <QRandomGenerator>
#include <QRegularExpression>
#include <gtest/gtest.h>

using Hmi::Shared::PhoneNumberUtility;

static QStringList parts(const QString& aNumber)
{
    const auto parsed = PhoneNumberUtility::parseNorthAmericanNumberingPlan(aNumber);
    return {parsed.countryCode, parsed.areaCode, parsed.exchangeCode, parsed.subscriberCode};
}

TEST(PhoneNumberUtility, StripsParsesAndFormats)
{
    // entered; stripped; parsed; formatted
    for (const char* row :
         {"1.913 742.0662;19137420662;1|913|742|0662;1 (913) 742-0662",
          "+913 742.0662;+9137420662;|913|742|0662;(913) 742-0662",
          "1 742.0662;17420662;1||742|0662;1 742-0662", "11111111111;11111111111;|||;11111111111",
          "+1 (913) 742-0662 // *w . p .;+19137420662*wp;|||;+1 (913) 742-0662 // *w . p .",
          "٩١٣ 742-06629 📞 #W;74206629#;|||;٩١٣ 742-06629 📞 #W"}) {
        const QStringList columns = QString::fromUtf8(row).split(QLatin1Char(';'));
        EXPECT_EQ(PhoneNumberUtility::stripSeparators(columns.at(0)), columns.at(1));
        EXPECT_EQ(parts(columns.at(0)).join(QLatin1Char('|')), columns.at(2));
        EXPECT_EQ(PhoneNumberUtility::format(columns.at(0)), columns.at(3));
    }
}

TEST(PhoneNumberUtility, TakesWhatTheBacktrackingPatternTakesAndKeepsWhatItFormatted)
{
    const QRegularExpression backtracking(QStringLiteral(
        R"(^\+?(1)?[-. ]*\(?[ ]?([2-9][0-9]{2})?[ ]?\)?[-. ]*([2-9][0-9]{2})[-. ]*([0-9]{4})$)"));
    const QString fillers = QStringLiteral("+ -( (  ) ). ");
    QRandomGenerator random(4711);
    for (int numbers = 0; numbers < 500;) {
        QString text;
        for (const char* code : {"1", "913", "222", "2662", "\n"})
            text += fillers.mid(random.bounded(13), random.bounded(4)) +
                    QLatin1String(random.bounded(8) ? code : "");
        const QStringList codes = backtracking.match(text).capturedTexts().mid(1);
        ASSERT_EQ(parts(text), codes.isEmpty() ? parts({}) : codes) << qPrintable(text);
        ASSERT_EQ(parts(PhoneNumberUtility::format(text)), parts(text)) << qPrintable(text);
        numbers += codes.isEmpty() ? 0 : 1;
    }
}

// Time that grows faster than the text would take hours here.
TEST(PhoneNumberUtility, TakesHostileTextsOfAMegabyte)
{
    for (const char* piece : {" ", "(", "222 "})
        EXPECT_EQ(parts(QString::fromLatin1(piece).repeated(1 << 20)), parts({})) << piece;
}
