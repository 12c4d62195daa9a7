#include "SettingsStores.h"

#include <gio/gio.h>

namespace {

class DConfStore : public SettingsStore
{
public:
    ~DConfStore() override { g_object_unref(mSettings); }

    void set(int aKey, int aValue) override
    {
        require(g_settings_set_int(mSettings, nameOf(aKey).c_str(), aValue), "writing to dconf");
    }

    void sync() override { g_settings_sync(); }

    int readAll() override
    {
        int count = 0;
        while (count < Keys && g_settings_get_int(mSettings, nameOf(count).c_str()) >= 0)
            ++count;
        return count;
    }

    void watch(const std::function<void(int)>& aChanged) override
    {
        mChanged = aChanged;
        g_signal_connect(mSettings, "changed::setting0", G_CALLBACK(&DConfStore::onChanged), this);
        g_settings_get_int(mSettings, "setting0"); // Nothing is told before the first read.
    }

private:
    static constexpr int Keys = 2000;

    static void onChanged(GSettings* aSettings, const char* aKey, void* aStore)
    {
        static_cast<DConfStore*>(aStore)->mChanged(g_settings_get_int(aSettings, aKey));
    }

    GSettings* mSettings = g_settings_new("hmi.benchmark");
    std::function<void(int)> mChanged;
};

} // namespace

std::unique_ptr<SettingsStore> openDConf() { return std::make_unique<DConfStore>(); }
