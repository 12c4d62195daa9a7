#pragma once

#include <QString>

#include <hmi/core/foundation/ConfigFacade.h>
#include <hmi/core/foundation/SingletonCpp.h>
#include <hmi/shared/services/ProductInfo.h>

namespace Hmi::Shared {

/**
 * Typed access to the group "HmiShared" of the configuration, and the owner of its defaults. Created after
 * the file was loaded and after HmiCoreConfigs, from whose folders its defaults follow; each getter reads one
 * key. QML reaches it as HmiShared.configs and may not create it. Creation logs the resources path that the
 * defaults use.
 */
class Q_DECL_EXPORT HmiSharedConfigs : public Core::SingletonCpp<HmiSharedConfigs>, private Core::ConfigFacade
{
    Q_OBJECT
    Q_PROPERTY(bool developerModeEnabled READ getDeveloperModeEnabled CONSTANT)
    Q_PROPERTY(bool diagnosticModeEnabled READ getDiagnosticModeEnabled CONSTANT)
    Q_PROPERTY(bool scaleToFitViewport READ getScaleToFitViewport CONSTANT)
    Q_PROPERTY(ViewportScaling scaleViewportToFitWindow READ getScaleViewportToFitWindow CONSTANT)
    friend class Core::SingletonCpp<HmiSharedConfigs>;

public:
    /** How a viewport that does not have the window's shape is fitted into it. */
    enum ViewportScaling {
        ViewportScalingPad,              ///< unscaled, with borders
        ViewportScalingStretch,          ///< filling the window, shape not kept
        ViewportScalingPreserveAspectFit ///< as large as fits, shape kept
    };
    Q_ENUM(ViewportScaling)

    /** Over a configuration other than the process's; it must outlive the facade. */
    explicit HmiSharedConfigs(Core::ConfigManager& aConfig);

    Q_INVOKABLE bool getDataManagerEnabled() const;
    Q_INVOKABLE bool getDeveloperModeEnabled() const;
    Q_INVOKABLE bool getDiagnosticModeEnabled() const;
    Q_INVOKABLE QString getErrorReportPath() const;
    /** The key "HmiShared/ErrorReportPathExport". */
    Q_INVOKABLE QString getErrorReportExportPath() const;
    Q_INVOKABLE QString getEulaPath() const;
    Q_INVOKABLE bool getScaleToFitViewport() const;
    /** ViewportScalingPad, after a warning, when the configured name is none of the enumeration. */
    Q_INVOKABLE Hmi::Shared::HmiSharedConfigs::ViewportScaling getScaleViewportToFitWindow() const;
    Q_INVOKABLE QString getScreenSnapshotPath() const;
    Q_INVOKABLE bool getSignalServiceEnabled() const;
    Q_INVOKABLE bool getSystemUpdateEnabled() const;
    Q_INVOKABLE bool getVoiceManagerEnabled() const;
    Q_INVOKABLE QString getVoiceServiceManagerConfig() const;
    Q_INVOKABLE QString getVoicesPath() const;

    QString getDataManagerConfigPath() const;
    /** The keys "HmiShared/HardwareEsnPath", "HmiShared/HardwareVersionPath",
     * "HmiShared/SoftwareVersionPath".
     */
    ProductInfoFiles getProductInfoFiles() const;
    /** Where the signal service listens. */
    QString getSignalServicePath() const;

private:
    HmiSharedConfigs();
};

} // namespace Hmi::Shared
