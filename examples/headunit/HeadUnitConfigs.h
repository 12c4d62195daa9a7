#pragma once

#include <QString>

#include <hmi/core/foundation/ConfigFacade.h>

/** What this product adds to the configuration, in the group "HeadUnit". Created after it was loaded. */
class HeadUnitConfigs : private Hmi::Core::ConfigFacade
{
public:
    /** The configuration must outlive the facade. */
    explicit HeadUnitConfigs(Hmi::Core::ConfigManager& aConfig);

    /** The file of an InstallationTask; empty where nothing holds start-up back. */
    QString getInstallationFile() const;
};
