#include "HeadUnitDriver.h"

#include <QDate>
#include <QDir>
#include <tests/support/PrivateBus.h>

class HeadUnitScreens : public testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(HmiTest::PrivateBus::start());
        mDriver = std::make_unique<HeadUnitDriver>();
        ASSERT_TRUE(mDriver->start());
    }
    void TearDown() override
    {
        mDriver.reset();
        HmiTest::PrivateBus::stop();
    }
    HeadUnitDriver& unit() { return *mDriver; }
    void vehicle(const QByteArray& aSignal, const QByteArray& aValue)
    {
        unit().getSignals().command("set Vehicle." + aSignal + ' ' + aValue);
    }
    void service(const QByteArray& aCommand) { unit().getServices().command(aCommand); }
    void shiftTo(const QByteArray& aGear) { vehicle("Powertrain.Transmission.SelectedGear", aGear); }

private:
    std::unique_ptr<HeadUnitDriver> mDriver;
};

TEST_F(HeadUnitScreens, KeepTheSettingsOfEachProfile)
{
    ASSERT_TRUE(unit().reads("Range", "412 km"));
    ASSERT_TRUE(unit().reads("Outside", "15 °C"));
    ASSERT_TRUE(unit().showsLike("\\d{1,2}:\\d\\d"));
    ASSERT_TRUE(unit().isPainted());

    ASSERT_TRUE(unit().click("Settings"));
    const QString date = QDate::currentDate().toString(QStringLiteral("dd.MM.yyyy"));
    const Words choices[][2] = {{"Distances", "Miles"},
                                {"Temperatures", "Fahrenheit"},
                                {"Time", "12 hours"},
                                {"Date", date},
                                {"Theme", "Night"}};
    for (const auto& [setting, choice] : choices)
        ASSERT_TRUE(unit().choose(setting, choice));
    ASSERT_TRUE(unit().isBright(false));
    ASSERT_TRUE(unit().isPainted());
    ASSERT_TRUE(unit().click("Drive"));
    const auto showsChoices = [&] {
        ASSERT_TRUE(unit().reads("Range", "256 mi"));
        ASSERT_TRUE(unit().reads("Odometer", "11,340 mi"));
        ASSERT_TRUE(unit().reads("Outside", "58 °F"));
        ASSERT_TRUE(unit().shows("mph"));
        ASSERT_TRUE(unit().shows(date));
        ASSERT_TRUE(unit().showsLike("\\d{1,2}:\\d\\d [ap]m"));
        ASSERT_TRUE(unit().isBright(false));
        ASSERT_TRUE(unit().isPainted());
    };
    showsChoices();

    ASSERT_TRUE(unit().click("Settings"));
    ASSERT_TRUE(unit().type("Name of the new profile", "Anna B"));
    ASSERT_TRUE(unit().click("Add"));
    ASSERT_TRUE(unit().reads("Profile", "Anna B"));
    ASSERT_TRUE(unit().reads("Distances", "Kilometres"));
    ASSERT_TRUE(unit().isBright(true));
    ASSERT_TRUE(unit().choose("Language", "Deutsch"));
    ASSERT_TRUE(unit().reads("Entfernungen", "Kilometer"));
    ASSERT_TRUE(unit().click("Ansagen stummschalten"));
    ASSERT_TRUE(unit().click("Fahren"));
    ASSERT_TRUE(unit().reads("Kilometerstand", "18.250 km"));
    ASSERT_TRUE(unit().isPainted());

    ASSERT_TRUE(unit().click("Einstellungen"));
    ASSERT_TRUE(unit().choose("Profil", "driver"));
    ASSERT_TRUE(unit().reads("Distances", "Miles"));
    ASSERT_TRUE(unit().isChecked("Mute the guidance", false));
    ASSERT_TRUE(unit().drag("Guidance volume", 1.0));
    ASSERT_TRUE(unit().measures("Guidance volume", 40));
    ASSERT_TRUE(unit().end()) << "with the finger on the slider";
    unit().release();

    ASSERT_TRUE(unit().start());
    showsChoices();
    ASSERT_TRUE(unit().click("Settings"));
    for (const auto& [setting, choice] : choices)
        ASSERT_TRUE(unit().reads(setting, choice));
    ASSERT_TRUE(unit().measures("Guidance volume", 40));
    ASSERT_TRUE(unit().click("Reset"));
    ASSERT_TRUE(unit().reads("Distances", "Kilometres"));
    ASSERT_TRUE(unit().measures("Guidance volume", 10));
    ASSERT_TRUE(unit().isBright(true));
    ASSERT_TRUE(unit().choose("Profile", "Anna B"));
    ASSERT_TRUE(unit().reads("Sprache", "Deutsch"));
    ASSERT_TRUE(unit().isChecked("Ansagen stummschalten", true));
    ASSERT_TRUE(unit().isPainted());
    ASSERT_TRUE(unit().end());
}

TEST_F(HeadUnitScreens, WalkAnUpdateThroughRestartsAndFailure)
{
    ASSERT_TRUE(unit().click("Update"));
    ASSERT_TRUE(unit().shows("There is no update"));
    service("update bandwidth 1000");
    service("update pace 300");
    service("update offer http://maps/1 9000000 2026.4");
    ASSERT_TRUE(unit().shows("An update can be downloaded"));
    ASSERT_TRUE(unit().reads("Version", "2026.4"));
    ASSERT_TRUE(unit().reads("Size", "9.0 MB"));
    ASSERT_TRUE(unit().click("Download"));
    ASSERT_TRUE(unit().shows("Downloading"));
    ASSERT_TRUE(unit().isPainted());
    ASSERT_TRUE(unit().click("Pause"));
    ASSERT_TRUE(unit().shows("The download is paused"));
    ASSERT_TRUE(unit().click("Resume"));
    ASSERT_TRUE(unit().shows("Downloading"));
    ASSERT_TRUE(unit().end()) << "in the middle of the download";

    unit().setInstallation("40");
    unit().launch();
    ASSERT_TRUE(unit().shows("An update is being installed"));
    ASSERT_TRUE(unit().shows("40 %"));
    unit().setInstallation("100");
    ASSERT_TRUE(unit().click("Update"));
    ASSERT_TRUE(unit().click("Download")) << "it looks for updates when it starts";
    service("update bandwidth 9000000");
    ASSERT_TRUE(unit().showsLike("[1-9]\\d? %"));
    ASSERT_TRUE(unit().shows("An update can be installed"));
    ASSERT_TRUE(unit().reads("Version", "2026.4"));
    shiftTo("D");
    ASSERT_TRUE(unit().reads("Install", "Locked while driving"));
    ASSERT_TRUE(unit().shows("Updates are not installed while driving."));
    ASSERT_TRUE(unit().poke("Install"));
    shiftTo("P");
    ASSERT_TRUE(unit().hides("Updates are not installed while driving."));
    ASSERT_TRUE(unit().shows("An update can be installed"));
    service("update fail");
    ASSERT_TRUE(unit().click("Install"));
    ASSERT_TRUE(unit().shows("The update could not be installed"));
    ASSERT_TRUE(unit().isPainted());
    service("update pace 2000");
    ASSERT_TRUE(unit().click("Try again"));
    ASSERT_TRUE(unit().shows("Verifying the update"));
    ASSERT_TRUE(unit().shows("Installing"));
    ASSERT_TRUE(unit().showsLike("[1-9]\\d? %"));
    ASSERT_TRUE(unit().shows("Checking the installation"));
    ASSERT_TRUE(unit().shows("The update is installed"));
    ASSERT_TRUE(unit().click("Done"));
    ASSERT_TRUE(unit().shows("There is no update"));
    ASSERT_TRUE(unit().end());
}

TEST_F(HeadUnitScreens, LiveThroughServicesThatGoAndComeBack)
{
    vehicle("Speed", "87.6");
    ASSERT_TRUE(unit().reads("Speed", "88"));
    unit().stopSignals();
    ASSERT_TRUE(unit().shows("No connection to the vehicle"));
    ASSERT_TRUE(unit().reads("Speed", "–"));
    ASSERT_TRUE(unit().reads("Range", "–"));
    unit().startSignals();
    ASSERT_TRUE(unit().hides("No connection to the vehicle"));
    ASSERT_TRUE(unit().reads("Speed", "0"));
    ASSERT_TRUE(unit().reads("Range", "412 km"));

    service("update offer http://maps/1 1 2026.4");
    ASSERT_TRUE(unit().click("Update"));
    ASSERT_TRUE(unit().click("Download"));
    ASSERT_TRUE(unit().click("Install"));
    ASSERT_TRUE(unit().shows("Verifying the update"));
    unit().stopServices();
    ASSERT_TRUE(unit().shows("The update service is away. Updates go on when it is back."));
    ASSERT_TRUE(unit().click("Wait no longer"));
    ASSERT_TRUE(unit().reads("Check for updates", "Not available"));
    ASSERT_TRUE(unit().click("Notifications"));
    ASSERT_TRUE(unit().shows("The notification service is away"));
    unit().startServices();
    ASSERT_TRUE(unit().shows("There are no notifications"));
    ASSERT_TRUE(unit().click("Update"));
    service("update offer http://maps/2 1 2026.5");
    ASSERT_TRUE(unit().reads("Version", "2026.5"));
    ASSERT_TRUE(unit().isOn("Download"));
    ASSERT_TRUE(unit().end());
}

TEST_F(HeadUnitScreens, LimitWhatTheDriverMayDo)
{
    ASSERT_TRUE(unit().click("System"));
    ASSERT_TRUE(unit().reads("Serial number", "DESK-0001"));
    ASSERT_TRUE(unit().isPainted());
    ASSERT_TRUE(unit().click("Licences"));
    ASSERT_TRUE(unit().shows("Apache License 2.0"));
    ASSERT_TRUE(unit().isPainted());
    ASSERT_TRUE(unit().click("Open-source software"));
    ASSERT_TRUE(unit().shows("Qt (LGPL 3)"));

    shiftTo("D");
    ASSERT_TRUE(unit().shows("Restricted"));
    ASSERT_TRUE(unit().shows("Licences are not shown while driving."));
    ASSERT_TRUE(unit().hides("Qt (LGPL 3)"));
    ASSERT_TRUE(unit().click("Back"));
    ASSERT_TRUE(unit().reads("Error reports", "Locked while driving"));
    ASSERT_TRUE(unit().reads("Licences", "Locked while driving"));
    ASSERT_TRUE(unit().click("Settings"));
    ASSERT_TRUE(unit().choose("Distances", "Miles")) << "what the driver may do";
    ASSERT_TRUE(unit().click("Reset"));
    ASSERT_TRUE(unit().shows("Not while driving"));
    ASSERT_TRUE(unit().reads("Name of the new profile", "Locked while driving"));
    ASSERT_TRUE(unit().reads("Add", "Locked while driving"));

    vehicle("Cabin.Lights.IsNight", "true");
    ASSERT_TRUE(unit().isBright(false));
    ASSERT_TRUE(unit().choose("Theme", "Day"));
    ASSERT_TRUE(unit().isBright(true));
    ASSERT_TRUE(unit().choose("Theme", "Automatic"));
    ASSERT_TRUE(unit().isBright(false));
    vehicle("Cabin.Lights.IsNight", "false");
    ASSERT_TRUE(unit().isBright(true));
    shiftTo("P");
    ASSERT_TRUE(unit().hides("Restricted"));
    ASSERT_TRUE(unit().isOn("Add"));
    ASSERT_TRUE(unit().reads("Distances", "Miles"));
    ASSERT_TRUE(unit().end());
}

TEST_F(HeadUnitScreens, ShowAndClearNotificationsAndReports)
{
    service("notify add weather black-ice 48.69 9.14");
    service("notify add service inspection");
    ASSERT_TRUE(unit().click("Notifications"));
    ASSERT_TRUE(unit().shows("weather at 48.690°, 9.140°"));
    ASSERT_TRUE(unit().shows("Priority 0"));
    ASSERT_TRUE(unit().isPainted());
    ASSERT_TRUE(unit().click("Dismiss black-ice"));
    ASSERT_TRUE(unit().hides("black-ice"));
    ASSERT_TRUE(unit().shows("inspection"));
    ASSERT_TRUE(unit().getServices().answers("notify dismiss 2", "dismissed 2"));
    ASSERT_TRUE(unit().shows("There are no notifications"));
    ASSERT_TRUE(unit().getServices().answers("notify list", "notifications 0"));

    for (int number = 1; number <= 3; ++number)
        service("bug create");
    ASSERT_TRUE(unit().getServices().answers("bug list", "reports 3"));
    ASSERT_TRUE(unit().click("System"));
    ASSERT_TRUE(unit().click("Error reports"));
    ASSERT_TRUE(unit().reads("Export", "Not available"));
    for (const char* report : {"bug-report-1.xml", "bug-report-3.xml"})
        ASSERT_TRUE(unit().click(QStringLiteral("hmi-platform-simulator, ") + QLatin1String(report)));
    ASSERT_TRUE(unit().isPainted());
    ASSERT_TRUE(unit().click("Export"));
    ASSERT_TRUE(unit().shows("Exported reports: 2"));
    const auto filesIn = [&](const char* aFolder) {
        return HmiTest::joined(QDir(unit().getFolder(aFolder)).entryList(QDir::Files, QDir::Name));
    };
    EXPECT_EQ(filesIn("exported-reports"), "bug-report-1.xml,bug-report-3.xml");
    ASSERT_TRUE(unit().click("hmi-platform-simulator, bug-report-2.xml"));
    ASSERT_TRUE(unit().click("Delete"));
    ASSERT_TRUE(unit().click("Keep"));
    ASSERT_TRUE(unit().click("Delete"));
    ASSERT_TRUE(unit().shows("Delete the selected reports (1)?"));
    ASSERT_TRUE(unit().click("Yes, delete"));
    ASSERT_TRUE(unit().shows("Deleted reports: 1"));
    EXPECT_EQ(filesIn("reports"), "bug-report-1.xml,bug-report-3.xml");
    ASSERT_TRUE(unit().hides("hmi-platform-simulator, bug-report-2.xml"));
    ASSERT_TRUE(unit().click("Select all"));
    ASSERT_TRUE(unit().isChecked("hmi-platform-simulator, bug-report-1.xml", true));
    ASSERT_TRUE(unit().click("Back"));
    ASSERT_TRUE(unit().end());
}
