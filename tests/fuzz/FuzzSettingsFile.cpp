#include "Surroundings.h"

#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLoggingCategory>
#include <QVector>
#include <cmath>

#include <hmi/shared/application/modules/HmiSharedGlobal.h>
#include <hmi/shared/settings/SettingsManager.h>
#include <platform/data-manager/DataManager.h>

using HmiFuzz::Input;
using HmiFuzz::require;
using namespace Hmi::Shared;

/** Qt's JSON parser leaks the list or object of a member that is there twice. */
extern "C" const char* __asan_default_options() { return "detect_leaks=0"; }

namespace {

struct Row
{
    Setting::SettingType type;
    QVariant::Type valueType;
    QVariant value; ///< by default
    bool exportable;
    Setting::SettingCategory category;
};

const QVector<Row>& rows()
{
    static const QVector<Row> rows = {
        {Setting::SettingTypeBool, QVariant::Bool, true, true, Setting::SettingCategoryUser},
        {Setting::SettingTypeInt, QVariant::Int, 7, true, Setting::SettingCategoryGlobal},
        {Setting::SettingTypeDouble, QVariant::Double, 0.5, true, Setting::SettingCategoryUser},
        {Setting::SettingTypeString, QVariant::String, QStringLiteral("text"), true,
         Setting::SettingCategoryUser},
        {Setting::SettingTypeByteArray, QVariant::ByteArray, QByteArray("bytes"), true,
         Setting::SettingCategoryGlobal},
        {Setting::SettingTypeString, QVariant::String, QStringLiteral("own"), false,
         Setting::SettingCategoryUser},
    };
    return rows;
}

/** One setting of each type, named "a" and on, over a store of this process's own. */
class Settings
{
public:
    Settings()
    {
        HmiFuzz::application();
        QLoggingCategory::setFilterRules(QStringLiteral("hmi.shared.info=false"));
        const QString configuration = mFolder.filePath(QStringLiteral("DataManagerConf.ini"));
        HmiFuzz::File::write(configuration, QByteArray());
        require(DataManager::StartUp(configuration) == DataManager::Ok, "there is a store");
        for (int index = 0; index < rows().size(); ++index) {
            const Row& row = rows().at(index);
            const QString name(QLatin1Char(static_cast<char>('a' + index)));
            mSettings.append(new Setting(name, name, row.type, row.value, row.exportable, row.category));
        }
        SettingsManager::instance()->addSettings(mSettings.toList());
        HmiSharedGlobal::instance();
    }

    void reset()
    {
        for (int index = 0; index < mSettings.size(); ++index)
            mSettings.at(index)->setValue(rows().at(index).value);
    }
    QVector<QVariant> values() const
    {
        QVector<QVariant> values;
        for (Setting* setting : mSettings)
            values.append(setting->getValue());
        return values;
    }
    const QVector<Setting*>& all() const { return mSettings; }

    QString getFolder() const { return mFolder.path(); }
    QString getFile() const { return mFolder.filePath(HmiSharedGlobal::instance()->getSettingsFileName()); }

private:
    const QTemporaryDir mFolder;
    QVector<Setting*> mSettings;
};

Settings& settings()
{
    // The managers go after main(), with those of the other singletons.
    static Settings* const settings = new Settings;
    return *settings;
}

bool import(const QByteArray& aContent)
{
    HmiFuzz::File::write(settings().getFile(), aContent);
    const HmiFuzz::Quick quick;
    return HmiSharedGlobal::instance()->importSettings(settings().getFolder());
}

void checkTypes(const QVector<QVariant>& aValues)
{
    for (int index = 0; index < aValues.size(); ++index) {
        require(aValues.at(index).type() == rows().at(index).valueType, "a setting keeps its type");
        const QString text = aValues.at(index).toString();
        require(rows().at(index).type != Setting::SettingTypeString ||
                    (text.size() <= Setting::MaximumLength && text.isValidUtf16()),
                "texts are of whole characters and a bounded length");
    }
}

QByteArray exported()
{
    require(HmiSharedGlobal::instance()->exportSettings(settings().getFolder()), "settings can be exported");
    QFile file(settings().getFile());
    require(file.open(QIODevice::ReadOnly), "the file is there");
    return file.readAll();
}

void checkRoundTrip(HmiFuzz::Warnings& aWarnings)
{
    const QVector<QVariant> values = settings().values();
    const QByteArray content = exported();
    settings().reset();
    aWarnings.takeCount();
    require(import(content) && aWarnings.takeCount() == 0, "what was exported is imported");
    QVector<QVariant> again = settings().values();
    require(again.last() == rows().last().value, "what is not exported stays");
    again.last() = values.last();
    require(again == values, "what was exported is imported as it was");
    require(exported() == content, "the same settings are the same file");
}

/** What native code may set: any text, and bytes that are one, as JSON has no others. */
void setNatively(Input& aInput)
{
    const QByteArray bytes(aInput.getRest(), static_cast<int>(aInput.getRestSize()));
    const QString text =
        QString::fromUtf16(reinterpret_cast<const char16_t*>(bytes.constData()), bytes.size() / 2);
    settings().all().at(3)->setValue(text);
    settings().all().at(4)->setValue(QString::fromUtf8(bytes.constData(), bytes.size()).toUtf8());
}

void checkImport(const QByteArray& aContent, HmiFuzz::Warnings& aWarnings)
{
    const QJsonDocument document = QJsonDocument::fromJson(aContent);
    const bool imported = import(aContent);
    const int count = aWarnings.takeCount();
    if (document.isObject()) {
        require(imported || count > 0, "what is refused is said");
        require(count <= document.object().size(), "a member is reported once");
        const QJsonValue number = document.object().value(QLatin1String("b"));
        const int taken = settings().all().at(1)->getValue().toInt();
        require(!number.isDouble() || taken == rows().at(1).value || std::abs(taken - number.toDouble()) < 1,
                "a number is taken as it is, or not at all");
        return;
    }
    require(!imported && count == 1, "what is no object is refused, with one warning");
    for (int index = 0; index < rows().size(); ++index)
        require(settings().values().at(index) == rows().at(index).value, "what is refused changes nothing");
}

} // namespace

// An odd first choice makes the rest the text and the bytes that native code sets; it is an imported file
// otherwise.
int LLVMFuzzerTestOneInput(const std::uint8_t* aData, std::size_t aSize)
{
    Input input(aData, aSize);
    settings().reset();
    HmiFuzz::Warnings warnings;
    if ((input.choose() & 1) != 0)
        setNatively(input);
    else
        checkImport(HmiFuzz::takeStretched(input), warnings);
    checkTypes(settings().values());
    checkRoundTrip(warnings);
    return 0;
}
