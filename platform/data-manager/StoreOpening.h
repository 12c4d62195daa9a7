#pragma once

#include <QString>

#include <platform/data-manager/StoreFile.h>

namespace DataManager {

enum class OpeningOutcome {
    Opened,
    Built,      ///< there was none, or a damaged one, which was set aside
    Unavailable ///< neither read nor made; what was there is untouched
};

/**
 * Opens the store of this path and reads it, or makes one. A damaged store is set aside, with a critical
 * message. When it is unavailable, aWhy says why. Processes that open the same path at the same time get the
 * same store; with aMayWait one waits for seconds for another that is making it.
 */
OpeningOutcome openStore(const StoreConfiguration& aConfiguration, bool aMayWait, StoreFile& aFile,
                         StoreContent& aContent, QString& aWhy);

/**
 * What a copy of a store that cannot be opened gives, as SQLite needs to write beside what it reads; that of
 * an empty store, and not known, when there is nothing to be read.
 */
StoreContent readStoreCopy(const QString& aPath);

/** Whether SQLite's code says that the file's content makes no sense. */
bool isDamage(int aSqliteCode);

/** Renames a store that turned out damaged, with its log. False, with aWhy, when that is not possible. */
bool setStoreAside(const QString& aPath, QString& aWhy);

} // namespace DataManager
