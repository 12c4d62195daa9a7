#pragma once

#include <QString>

namespace Hmi::Core {
class ConfigManager;
}

/** What the driver prints about its host, on standard output, so that a run shows what it ran with. */
namespace DriverReport {

/** The configuration file, then each key with its value and whether the file or a default gave it. */
void printConfiguration(const Hmi::Core::ConfigManager& aConfig);

/** The theme bundle and the file that it was read from. */
void printThemeBundle(const QString& aName, const QString& aFilePath);

/** How many component checks ran and how many of them failed. */
void printOutcome(int aRun, int aFailed);

} // namespace DriverReport
