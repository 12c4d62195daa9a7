#include "SettingsStores.h"

#include <QDBusConnection>
#include <QFile>
#include <vector>

#include <hmi/shared/settings/Setting.h>
#include <platform/data-manager/DataManager.h>
#include <platform/data-manager/DataManagerSignalClient.h>

using Hmi::Shared::Setting;

namespace {

QString idOf(int aKey) { return QString::fromStdString(nameOf(aKey)); }

class DataManagerStore : public SettingsStore
{
public:
    DataManagerStore(const std::string& aFolder, bool aFull)
    {
        const QString path = QString::fromStdString(aFolder + "/benchmark.ini");
        if (!QFile::exists(path))
            writeConfiguration(path);
        const QString durability = aFull ? QStringLiteral("full") : QStringLiteral("normal");
        require(DataManager::StartUp(path, {{QStringLiteral("Durability"), durability}}) == DataManager::Ok,
                "starting the data manager");
    }

    static void writeConfiguration(const QString& aPath)
    {
        QFile file(aPath);
        require(file.open(QFile::WriteOnly) && file.write("[Storage]\n") > 0, "writing the configuration");
    }

    ~DataManagerStore() override { DataManager::ShutDown(); }

    void set(int aKey, int aValue) override
    {
        require(DataManager::Settings::setGlobalSetting(idOf(aKey), aValue) == DataManager::Ok,
                "writing to the data manager");
    }

    void beginBatch() override { DataManager::beginBatch(); }
    void commitBatch() override { require(DataManager::commitBatch() == DataManager::Ok, "writing a batch"); }

    /** Start-up has read them. */
    int readAll() override
    {
        int count = 0;
        int value = 0;
        while (DataManager::Settings::getGlobalSetting(idOf(count), value) == DataManager::Ok)
            ++count;
        return count;
    }

    void watch(const std::function<void(int)>& aChanged) override
    {
        DataManager::Settings::requestSettingChangedSignal(idOf(0), QStringLiteral("benchmark"));
        mClient = std::make_unique<DataManagerSignalClient>(QDBusConnection::systemBus());
        QObject::connect(mClient.get(), &DataManagerSignalClient::DataManagerSettingChanged, mClient.get(),
                         [aChanged](int, const QString& aName) {
                             int value = 0;
                             DataManager::Settings::getGlobalSetting(aName, value);
                             aChanged(value);
                         });
    }

private:
    std::unique_ptr<DataManagerSignalClient> mClient;
};

class SettingObjects : public DataManagerStore
{
public:
    using DataManagerStore::DataManagerStore;

    void set(int aKey, int aValue) override
    {
        while (static_cast<int>(mSettings.size()) <= aKey)
            addSetting(idOf(static_cast<int>(mSettings.size())));
        require(mSettings[static_cast<std::size_t>(aKey)]->setValue(aValue), "writing a setting");
    }

private:
    void addSetting(const QString& aId)
    {
        mSettings.push_back(std::make_unique<Setting>(aId, aId, Setting::SettingTypeInt, -1,
                                                      Setting::SettingCategoryGlobal, nullptr));
    }

    std::vector<std::unique_ptr<Setting>> mSettings;
};

} // namespace

std::unique_ptr<SettingsStore> openOwn(const std::string& aFolder, bool aFull, bool aObjects)
{
    if (aObjects)
        return std::make_unique<SettingObjects>(aFolder, aFull);
    return std::make_unique<DataManagerStore>(aFolder, aFull);
}
