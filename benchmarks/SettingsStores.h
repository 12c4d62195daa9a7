#pragma once

#include <functional>
#include <memory>
#include <string>

#include "Require.h"

/**
 * A store of whole numbers under the names setting0, setting1 and so on, as the benchmarks drive it: the
 * library's own and what you would pick instead, all alike. Opened by its function below; what fails ends the
 * program.
 */
class SettingsStore
{
public:
    SettingsStore() = default;
    virtual ~SettingsStore() = default;
    SettingsStore(const SettingsStore&) = delete;
    SettingsStore& operator=(const SettingsStore&) = delete;

    virtual void set(int aKey, int aValue) = 0;
    /** Waits until what was set is stored, where set() does not. */
    virtual void sync() {}
    virtual void beginBatch() {}
    virtual void commitBatch() { sync(); }
    /** Stores so many settings. */
    void fill(int aCount);
    /** Work that the store may do between two writes. */
    virtual void tidy() {}

    /** Reads everything; how many settings there are. */
    virtual int readAll() = 0;
    /** Calls on each change of setting0 by another process. */
    virtual void watch(const std::function<void(int aValue)>& aChanged);
};

std::string nameOf(int aKey);

/**
 * A store of this kind in the folder: Setting (an object for each), DataManager, Sqlite, QSettings, KConfig
 * or, in the database of the session, DConf. The first three can wait for the medium on each write ("full");
 * the latter three always do.
 *
 * Sqlite is raw SQLite at its best: a prepared statement, and a log of its final size, so that no write grows
 * it and none makes a checkpoint.
 */
std::unique_ptr<SettingsStore> openStore(const std::string& aKind, const std::string& aFolder, bool aFull);

/** These kinds of it. */
std::unique_ptr<SettingsStore> openOwn(const std::string& aFolder, bool aFull, bool aObjects);
std::unique_ptr<SettingsStore> openDConf();
