#include "DriverReport.h"

#include <cstdio>

#include <hmi/core/foundation/ConfigManager.h>

namespace DriverReport {

void printConfiguration(const Hmi::Core::ConfigManager& aConfig)
{
    const QString file = aConfig.getFilePath();
    std::printf("Configuration file: %s\n",
                file.isEmpty() ? "none, every key has its default" : qPrintable(file));
    const QStringList keys = aConfig.getKeys();
    for (const QString& key : keys)
        std::printf("  %-38s %-8s %s\n", qPrintable(key), aConfig.isFromFile(key) ? "file" : "default",
                    qPrintable(aConfig.text(key, true)));
}

void printThemeBundle(const QString& aName, const QString& aFilePath)
{
    std::printf("Theme bundle: %s\n  %s\n", qPrintable(aName), qPrintable(aFilePath));
    std::fflush(stdout);
}

void printOutcome(int aRun, int aFailed)
{
    std::printf("Component checks: %d run, %d failed\n", aRun, aFailed);
    std::fflush(stdout);
}

} // namespace DriverReport
