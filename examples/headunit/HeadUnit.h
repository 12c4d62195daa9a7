#pragma once

#include <QObject>
#include <QString>
#include <QVariantMap>
#include <memory>

#include "Appearance.h"
#include "VehicleModule.h"
#include <hmi/shared/application/Application.h>

namespace Hmi::Shared {
class VolumePolicyBase;
}

class ScreenshotTour;

/**
 * The product: a head unit with a drive, a settings, an update, a notifications and a system screen.
 *
 * An installation that is under way when it starts holds it back, where the configuration names its file.
 * Two variables of the environment are for the desk: HEADUNIT_PROFILE is the user profile that becomes active
 * at start-up, added when there is none of that name; HEADUNIT_SCREENSHOTS is a folder that takes a picture
 * of every screen, after which the head unit ends.
 */
class HeadUnit : public Hmi::Shared::Application
{
public:
    HeadUnit(int& aArgumentCount, char** aArguments);
    ~HeadUnit() override;

protected:
    /** The first argument that is no option, or "headunit.ini" beside the program. */
    QString getConfigFile() const override;

    void initCore() override;
    bool initModules() override;
    void initServices() override;
    void initViewerApp() override;
    void postInit() override;
    void finishTask() override;
    void clearViewerApp() override;
    void deInitServices() override;

private:
    void holdBackForInstallation();
    std::unique_ptr<QObject> show(const QString& aScreen, const QVariantMap& aProperties = {});
    void onFirstFrame();

    VehicleModule mVehicle;
    Appearance mAppearance;
    std::unique_ptr<Hmi::Shared::VolumePolicyBase> mGuidanceVolume;
    std::unique_ptr<QObject> mWindow;
    std::unique_ptr<ScreenshotTour> mTour;
    bool mInstallationLookedFor = false;
};
