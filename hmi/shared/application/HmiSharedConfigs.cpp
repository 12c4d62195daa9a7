#include <hmi/shared/application/HmiSharedConfigs.h>

#include <QCoreApplication>
#include <QMetaEnum>

#include <hmi/core/foundation/ConfigManager.h>

namespace Hmi::Shared {

namespace Key {
static const QString DataManagerConfigPath = QStringLiteral("HmiShared/DataManagerConfigPath");
static const QString DataManagerEnabled = QStringLiteral("HmiShared/DataManagerEnabled");
static const QString DeveloperModeEnabled = QStringLiteral("HmiShared/DeveloperModeEnabled");
static const QString DiagnosticModeEnabled = QStringLiteral("HmiShared/DiagnosticModeEnabled");
static const QString ErrorReportPath = QStringLiteral("HmiShared/ErrorReportPath");
static const QString ErrorReportPathExport = QStringLiteral("HmiShared/ErrorReportPathExport");
static const QString EulaPath = QStringLiteral("HmiShared/EulaPath");
static const QString HardwareEsnPath = QStringLiteral("HmiShared/HardwareEsnPath");
static const QString HardwareVersionPath = QStringLiteral("HmiShared/HardwareVersionPath");
static const QString ScaleToFitViewport = QStringLiteral("HmiShared/ScaleToFitViewport");
static const QString ScaleViewportToFitWindow = QStringLiteral("HmiShared/ScaleViewportToFitWindow");
static const QString ScreenSnapshotPath = QStringLiteral("HmiShared/ScreenSnapshotPath");
static const QString SignalServiceEnabled = QStringLiteral("HmiShared/SignalServiceEnabled");
static const QString SignalServicePath = QStringLiteral("HmiShared/SignalServicePath");
static const QString SoftwareVersionPath = QStringLiteral("HmiShared/SoftwareVersionPath");
static const QString SystemUpdateEnabled = QStringLiteral("HmiShared/SystemUpdateEnabled");
static const QString VoiceManagerEnabled = QStringLiteral("HmiShared/VoiceManagerEnabled");
static const QString VoiceServiceManagerConfig = QStringLiteral("HmiShared/VoiceServiceManagerConfig");
static const QString VoicesPath = QStringLiteral("HmiShared/VoicesPath");
} // namespace Key

HmiSharedConfigs::HmiSharedConfigs() : HmiSharedConfigs(*Core::ConfigManager::instance()) {}

HmiSharedConfigs::HmiSharedConfigs(Core::ConfigManager& aConfig) : Core::ConfigFacade(aConfig)
{
    const QString systemConfigurationKey = QStringLiteral("HmiCore/GnuSysconfdir");
    const QString systemConfiguration =
        hasValue(systemConfigurationKey) ? path(systemConfigurationKey) : QStringLiteral("usr/local");
    const QString localState = path(QStringLiteral("HmiCore/GnuLocalstatedir"));
    const QString resources = path(QStringLiteral("HmiCore/GnuDatadir")) + QLatin1Char('/') +
                              QCoreApplication::applicationName() + QLatin1Char('/');
    qWarning("resourcesPath: %s", qPrintable(resources));

    addPath(Key::DataManagerConfigPath, systemConfiguration + QStringLiteral("/DataManagerConf.ini"));
    addPath(Key::ErrorReportPath, localState + QStringLiteral("/log/shutdowns"));
    addPath(Key::ErrorReportPathExport, localState);
    addPath(Key::EulaPath, resources + QStringLiteral("eula"));
    const ProductInfoFiles unit;
    addPath(Key::HardwareEsnPath, unit.hardwareEsn);
    addPath(Key::HardwareVersionPath, unit.hardwareVersion);
    addPath(Key::SoftwareVersionPath, unit.softwareVersion);
    addPath(Key::ScreenSnapshotPath, localState);
    addPath(Key::SignalServicePath, QStringLiteral("/var/run/signal_service"));

    addValue(Key::DataManagerEnabled, false);
    addValue(Key::DeveloperModeEnabled, true);
    addValue(Key::DiagnosticModeEnabled, true);
    addValue(Key::ScaleToFitViewport, false);
    addValue(Key::ScaleViewportToFitWindow, QStringLiteral("ViewportScalingPad"));
    addValue(Key::SignalServiceEnabled, false);
    addValue(Key::SystemUpdateEnabled, false);
    addValue(Key::VoiceManagerEnabled, false);
    addValue(Key::VoiceServiceManagerConfig, QStringLiteral("Internal"));
    addValue(Key::VoicesPath, QStringLiteral("C:/Projects/R7_Voices/voices"));
}

QString HmiSharedConfigs::getDataManagerConfigPath() const { return path(Key::DataManagerConfigPath); }

bool HmiSharedConfigs::getDataManagerEnabled() const { return flag(Key::DataManagerEnabled); }

bool HmiSharedConfigs::getDeveloperModeEnabled() const { return flag(Key::DeveloperModeEnabled); }

bool HmiSharedConfigs::getDiagnosticModeEnabled() const { return flag(Key::DiagnosticModeEnabled); }

QString HmiSharedConfigs::getErrorReportPath() const { return path(Key::ErrorReportPath); }

QString HmiSharedConfigs::getErrorReportExportPath() const { return path(Key::ErrorReportPathExport); }

QString HmiSharedConfigs::getEulaPath() const { return path(Key::EulaPath); }

ProductInfoFiles HmiSharedConfigs::getProductInfoFiles() const
{
    return {path(Key::HardwareEsnPath), path(Key::HardwareVersionPath), path(Key::SoftwareVersionPath)};
}

bool HmiSharedConfigs::getScaleToFitViewport() const { return flag(Key::ScaleToFitViewport); }

HmiSharedConfigs::ViewportScaling HmiSharedConfigs::getScaleViewportToFitWindow() const
{
    const QString name = text(Key::ScaleViewportToFitWindow);
    bool known = false;
    const int scaling = QMetaEnum::fromType<ViewportScaling>().keyToValue(qPrintable(name), &known);
    if (known)
        return static_cast<ViewportScaling>(scaling);
    qWarning("WARNING: The value \"%s\" of %s is no viewport scaling; ViewportScalingPad is used.",
             qPrintable(name), qPrintable(Key::ScaleViewportToFitWindow));
    return ViewportScalingPad;
}

QString HmiSharedConfigs::getScreenSnapshotPath() const { return path(Key::ScreenSnapshotPath); }

bool HmiSharedConfigs::getSignalServiceEnabled() const { return flag(Key::SignalServiceEnabled); }

QString HmiSharedConfigs::getSignalServicePath() const { return path(Key::SignalServicePath); }

bool HmiSharedConfigs::getSystemUpdateEnabled() const { return flag(Key::SystemUpdateEnabled); }

bool HmiSharedConfigs::getVoiceManagerEnabled() const { return flag(Key::VoiceManagerEnabled); }

QString HmiSharedConfigs::getVoiceServiceManagerConfig() const
{
    return text(Key::VoiceServiceManagerConfig);
}

QString HmiSharedConfigs::getVoicesPath() const { return text(Key::VoicesPath); }

} // namespace Hmi::Shared
