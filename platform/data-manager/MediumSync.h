#pragma once

#include <QString>

namespace DataManager {

/** Brings the entries of the file's folder to the medium, which a new or renamed file needs. Any thread. */
void syncFolderOf(const QString& aPath);

} // namespace DataManager
