#pragma once

#include <QMap>
#include <QString>
#include <QStringList>
#include <functional>
#include <vector>

#include <platform/data-manager/DataManager.h>

/** What a reader of the store has to see: everything in it, by name. */
struct StoreState
{
    QStringList profiles{QStringLiteral("default"), QStringLiteral("driver")};
    QString active = QStringLiteral("driver");
    QMap<QString, DataManager::Value> settings; ///< under "owner/id"

    /** Through the data manager; a code that is neither Ok nor that of a missing setting is an entry of its
     * own. */
    static StoreState read();
    /** Where another differs from it, for people. */
    QString difference(const StoreState& aOther) const;
};

inline bool operator==(const StoreState& aOne, const StoreState& aOther)
{
    return aOne.profiles == aOther.profiles && aOne.active == aOther.active &&
           aOne.settings == aOther.settings;
}

/** One operation on the data manager, and what it does when it succeeds. */
struct StoreStep
{
    QString name;
    std::function<int()> act;
    std::function<void(StoreState&)> effect;
    bool keptInMemory; ///< what the file does not take is served all the same
};

/** Calls every operation that writes; the values are of all types. */
std::vector<StoreStep> everyOperation();
/** So much that the log is carried over while the store is open. */
std::vector<StoreStep> longLog(DataManager::Scope aScope, int aBytes,
                               const std::function<void()>& aWaitForKeeper);
/** Every id that these write. */
QStringList scriptIds();
