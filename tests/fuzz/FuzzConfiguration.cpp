#include "Surroundings.h"

#include <QHash>
#include <QStringList>
#include <QVariant>
#include <algorithm>
#include <limits>

#include <hmi/core/foundation/ConfigFacade.h>
#include <hmi/core/foundation/ConfigManager.h>

using Hmi::Core::ConfigManager;
using HmiFuzz::require;

namespace {

constexpr int LongestWithVariant = 100; ///< bytes

const QHash<QString, QString>& placeholders()
{
    static const QHash<QString, QString> table = {
        {QStringLiteral("HOME"), QStringLiteral("/opt/korvex")},
        {QStringLiteral("A"), QStringLiteral("%%B%%")},
        {QStringLiteral("B"), QString()},
        {QStringLiteral("C"), QStringLiteral("7%")},
    };
    return table;
}

bool isNameCharacter(QChar aCharacter)
{
    const char16_t code = aCharacter.unicode();
    return (code >= '0' && code <= '9') || (code >= 'A' && code <= 'Z') || (code >= 'a' && code <= 'z');
}

/** The reference: how long the placeholder is that begins here, with its marks; 0 when none does. */
int placeholderAt(const QString& aText, int aBegin)
{
    const auto isMark = [&](int aAt) { return aText.midRef(aAt, 2) == QLatin1String("%%"); };
    int at = aBegin + 2;
    while (at < aText.size() && at < aBegin + 102 && isNameCharacter(aText.at(at)))
        ++at;
    return isMark(aBegin) && at > aBegin + 2 && isMark(at) ? at + 2 - aBegin : 0;
}

/** What a value becomes, told character by character; aUnknown counts what has no replacement. */
QString expanded(const QString& aText, int& aUnknown)
{
    QString text;
    text.reserve(aText.size());
    for (int at = 0; at < aText.size();) {
        const int length = placeholderAt(aText, at);
        const QString name = aText.mid(at + 2, std::max(length - 4, 0));
        if (length == 0)
            text += aText.at(at);
        else if (placeholders().contains(name))
            text += placeholders().value(name);
        else
            text += aText.midRef(at, length);
        aUnknown += length > 0 && !placeholders().contains(name) ? 1 : 0;
        at += std::max(length, 1);
    }
    return text;
}

struct Facade : Hmi::Core::ConfigFacade
{
    explicit Facade(ConfigManager& aConfig) : ConfigFacade(aConfig) {}
    using ConfigFacade::number;
};

void checkTypes(ConfigManager& aConfig, const QString& aKey, HmiFuzz::Warnings& aWarnings)
{
    const QString text = aConfig.text(aKey, false);
    bool isNumber = false;
    const int number = text.toInt(&isNumber);
    aConfig.registerDefault(aKey, 3, false);
    require(aWarnings.takeCount() == (isNumber ? 0 : 1), "what is no number is reported once");
    require(Facade(aConfig).number(aKey) == number, "a number is what stands there, else 0");
    aConfig.registerDefault(aKey, QStringLiteral("default"), true);
    require(aWarnings.takeCount() == 0, "any text is a text");
    require(aConfig.isFromFile(aKey) && aConfig.text(aKey, false) == text, "a default hides no value");
    const QString path = aConfig.text(aKey, true);
    require(path.startsWith(QLatin1Char('/')) || path.startsWith(QLatin1Char(':')), "paths are absolute");
    require(path.endsWith(text), "of a path nothing is lost");
}

void run(const QByteArray& aContent)
{
    const HmiFuzz::File file(aContent);
    const HmiFuzz::File same(aContent);
    HmiFuzz::Warnings warnings;
    ConfigManager plain;
    const bool isLoaded = plain.load(file.getPath());
    require(isLoaded || aContent.count('[') > ConfigManager::MostOpenBrackets,
            "a file is loaded, whatever it holds");
    if (!isLoaded)
        return;
    const int faults = warnings.takeCount();
    // Qt tells of values that it cannot decode as well.
    require(faults <= 1 || aContent.contains("@Variant"), "what is no INI syntax is reported once");
    ConfigManager config;
    config.setPlaceholders(placeholders());
    require(config.load(same.getPath()), "placeholders keep no file from being loaded");
    const QStringList keys = plain.getKeys();
    require(config.getKeys() == keys && std::is_sorted(keys.begin(), keys.end()),
            "placeholders change no keys");
    int unknown = 0;
    for (const QString& key : keys)
        require(config.text(key, false) == expanded(plain.text(key, false), unknown),
                "placeholders are replaced, and nothing else is");
    require(warnings.takeCount() == faults + unknown, "what is not replaced is reported, each once");
    for (const QString& key : keys)
        if (config.isFromFile(key))
            checkTypes(config, key, warnings);
        else
            require(aContent.contains("@Invalid") || aContent.contains("@Variant"),
                    "what is no value is not listed");
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* aData, std::size_t aSize)
{
    HmiFuzz::Input input(aData, aSize);
    const QByteArray content = HmiFuzz::takeStretched(input);
    // A variant may hold thousands of values, which Qt reads: most of the time would go there.
    if (content.contains("@Variant") && content.size() > LongestWithVariant)
        return 0;
    const HmiFuzz::Quick quick;
    run(content);
    return 0;
}
