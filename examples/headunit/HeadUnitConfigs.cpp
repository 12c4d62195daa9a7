#include "HeadUnitConfigs.h"

namespace Key {
static const QString InstallationFile = QStringLiteral("HeadUnit/InstallationFile");
} // namespace Key

HeadUnitConfigs::HeadUnitConfigs(Hmi::Core::ConfigManager& aConfig) : Hmi::Core::ConfigFacade(aConfig)
{
    addPath(Key::InstallationFile, QString());
}

QString HeadUnitConfigs::getInstallationFile() const
{
    return text(Key::InstallationFile).isEmpty() ? QString() : path(Key::InstallationFile);
}
