#pragma once

#include <QHash>
#include <QList>
#include <optional>

#include <platform/data-manager/StoreContent.h>

namespace DataManager {

class StoreFile;

/** The settings whose values wait for the file; the values themselves are in the content in memory. */
class PendingValues
{
public:
    bool isEmpty() const { return mSettings.isEmpty(); }
    QList<SettingKey> keys() const { return mSettings.keys(); }
    void clear() { mSettings.clear(); }

    /**
     * To be called before the new value is in aContent. With aYields, it is dropped when another process
     * stores something else meanwhile: that is the later write, and it was acknowledged.
     */
    void keep(const SettingKey& aKey, const StoreContent& aContent, bool aYields);
    /** Everything in memory, for a file that was made anew; what another process has stored there stays. */
    void keepAll(const StoreContent& aContent);

    /** Puts the values from memory over what was read, without those that were overtaken. */
    void putOver(StoreContent& aRead, const StoreContent& aInMemory);

    /** In the transaction of the caller; SQLite's code. */
    int write(StoreFile& aFile, const StoreContent& aInMemory) const;

private:
    struct Pending
    {
        bool yields;
        std::optional<Value> stored; ///< what the file had then
    };

    QHash<SettingKey, Pending> mSettings;
};

} // namespace DataManager
