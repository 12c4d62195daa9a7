#include "Surroundings.h"

#include <QLoggingCategory>
#include <QVector>

#include <hmi/shared/application/LoggingRules.h>

using Hmi::Shared::LoggingRules;
using HmiFuzz::require;

namespace {

/** What the filters let through of a few categories. */
QVector<bool> filtered()
{
    static const QLoggingCategory categories[] = {QLoggingCategory("a"), QLoggingCategory("hmi.shared"),
                                                  QLoggingCategory("driver.usb", QtWarningMsg)};
    QVector<bool> enabled;
    for (const QLoggingCategory& category : categories)
        enabled << category.isDebugEnabled() << category.isInfoEnabled() << category.isWarningEnabled()
                << category.isCriticalEnabled();
    return enabled;
}

void checkRules(const QStringList& aRules, const QString& aText)
{
    int at = 0;
    for (const QString& rule : aRules) {
        require(!rule.isEmpty() && rule == rule.trimmed(), "rules have no blanks around them");
        require(!rule.startsWith(QLatin1Char(';')) && !rule.startsWith(QLatin1Char('[')) &&
                    !rule.contains(QLatin1Char('\n')),
                "a rule is one line, no comment and no section");
        at = aText.indexOf(rule, at);
        require(at >= 0, "rules are the file's, in its order");
        at += rule.size();
    }
    require(LoggingRules::parse(aRules.join(QLatin1Char('\n'))) == aRules, "rules alone are the same rules");
    const QString more = aText + QStringLiteral("\n[RuLes]\nb=true\n[other]\nc=true");
    require(LoggingRules::parse(more) == aRules + QStringList{QStringLiteral("b=true")},
            "rules are taken from their sections");
}

/** Also that a file without rules changes nothing, by what was there before. */
void checkEffect(const QByteArray& aContent, const QStringList& aRules)
{
    const QString before = QStringLiteral("a.debug=false\ndriver.*=true");
    QLoggingCategory::setFilterRules(aRules.isEmpty() ? before : aRules.join(QLatin1Char('\n')));
    const QVector<bool> expected = filtered();
    QLoggingCategory::setFilterRules(before);
    const HmiFuzz::File file(aContent);
    require(LoggingRules::load(file.getPath()), "a file of a good size is taken");
    require(filtered() == expected, "the file's rules are the filters");
    QLoggingCategory::setFilterRules(QString());
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* aData, std::size_t aSize)
{
    HmiFuzz::Input input(aData, aSize);
    const QByteArray content = HmiFuzz::takeStretched(input);
    const HmiFuzz::Quick quick;
    const HmiFuzz::Warnings warnings; // of Qt, about what is no rule
    const QString text = QString::fromUtf8(content.constData());
    const QStringList rules = LoggingRules::parse(text);
    checkRules(rules, text);
    checkEffect(content, rules);
    return 0;
}
