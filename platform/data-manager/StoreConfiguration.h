#pragma once

#include <QHash>
#include <QString>
#include <optional>

namespace DataManager {

/** When a write counts as stored: Normal, in the file; Full, on the medium. */
enum class Durability { Normal, Full };

/** What DataManager::StartUp() is told; all paths are absolute. */
struct StoreConfiguration
{
    QString storePath;
    QString defaultsPath; ///< empty: no defaults
    Durability durability = Durability::Normal;
};

/** Nothing, after a critical message that names the file, when it cannot be read. Any thread. */
std::optional<StoreConfiguration> readConfiguration(const QString& aIniPath,
                                                    const QHash<QString, QString>& aParameters);

} // namespace DataManager
