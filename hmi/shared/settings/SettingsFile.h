#pragma once

#include <QString>

/**
 * The published settings as a file: a JSON object of names and values. A failure is one warning that names
 * the file. Main thread only.
 */
namespace Hmi::Shared::SettingsFile {

/** Larger files are not read, in bytes. */
constexpr qint64 MaximumSize = qint64(4) * 1024 * 1024;

/** Writes the exportable settings; on failure the file that was there stays as it was. */
bool save(const QString& aFilePath);

/**
 * The result of SettingsManager::setValuesFromJson(). A file that is missing, too large or no JSON object
 * changes nothing.
 */
bool load(const QString& aFilePath);

} // namespace Hmi::Shared::SettingsFile
