#include "ScreenshotTour.h"

#include <QCoreApplication>
#include <QVariant>
#include <chrono>
#include <iterator>

#include "SignalVehiclePolicy.h"
#include <hmi/core/language/LanguageManager.h>
#include <hmi/core/view/ThemeManager.h>

using namespace std::chrono_literals;
using Hmi::Shared::PagePrintManager;

namespace {

struct Stop
{
    const char* picture;
    const char* app;
    const char* page;
    const char* theme;
    const char* language;
};

constexpr Stop Stops[] = {
    {"drive.png", "drive", "", "day", "en_US"},
    {"settings.png", "settings", "", "day", "en_US"},
    {"update.png", "update", "", "day", "en_US"},
    {"notifications.png", "notifications", "", "day", "en_US"},
    {"system.png", "system", "", "day", "en_US"},
    {"licences.png", "system", "licences", "day", "en_US"},
    {"error-reports.png", "system", "error-reports", "day", "en_US"},
    {"drive-night.png", "drive", "", "night", "en_US"},
    {"drive-german.png", "drive", "", "day", "de_DE"},
};

/** How long a screen has for what it asks of services. */
constexpr auto TimeOfStop = 700ms;
constexpr auto LongestWait = 5s;

} // namespace

ScreenshotTour::ScreenshotTour(const QString& aFolder, QObject& aWindow,
                               const SignalVehiclePolicy& aVehicle) :
    mPrinter(aFolder), mWindow(aWindow)
{
    mTimer.setSingleShot(true);
    connect(&mTimer, &QTimer::timeout, this, &ScreenshotTour::begin);
    connect(&aVehicle, &SignalVehiclePolicy::speedChanged, this, &ScreenshotTour::begin);
    mTimer.start(LongestWait);
}

void ScreenshotTour::begin()
{
    if (mNext > 0)
        return;
    mTimer.disconnect(this);
    connect(&mTimer, &QTimer::timeout, this, &ScreenshotTour::print);
    // A picture may take until the next frame, which has to show the same screen.
    connect(&mPrinter, &PagePrintManager::printed, this, &ScreenshotTour::goOn);
    connect(&mPrinter, &PagePrintManager::printFailed, this, &ScreenshotTour::goOn);
    openNext();
}

void ScreenshotTour::openNext()
{
    const Stop& stop = Stops[mNext++];
    Hmi::Core::ThemeManager::instance()->setCurrentTheme(QLatin1String(stop.theme));
    Hmi::Core::LanguageManager::instance()->setCurrentLanguage(QLatin1String(stop.language));
    QMetaObject::invokeMethod(&mWindow, "open", Q_ARG(QVariant, QLatin1String(stop.app)),
                              Q_ARG(QVariant, QLatin1String(stop.page)));
    mTimer.start(TimeOfStop);
}

void ScreenshotTour::print()
{
    if (!mPrinter.print(&mWindow, QLatin1String(Stops[mNext - 1].picture)))
        goOn();
}

void ScreenshotTour::goOn()
{
    if (mNext < int(std::size(Stops)))
        openNext();
    else
        QCoreApplication::quit();
}
