#include "HeadUnitDriver.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <algorithm>
#include <tests/support/FilesAndWaits.h>

using HmiTest::waitUntil;

static const QStringList sOff{QStringLiteral("Locked while driving"), QStringLiteral("Not available")};
static const QRect sWindow(0, 0, 800, 480);
static const QRect sRail(0, 0, 136, 480);
static const QRect sContent(136, 64, 664, 416);

/** Above or below what the window shows. */
static bool isRolledAway(const AccessibleTree::Element& aElement)
{
    const QRect area = aElement.area;
    return area.left() >= sContent.left() && area.isValid() &&
           (area.bottom() < 0 || area.top() > sWindow.bottom());
}

static bool wait(const std::function<bool()>& aCondition)
{
    static const int sFactor = qMax(1, qEnvironmentVariableIntValue("HMI_TEST_TIMEOUT_FACTOR"));
    return waitUntil(aCondition, 20000 * sFactor);
}

static QString busAddress() { return QString::fromLocal8Bit(qgetenv("DBUS_SYSTEM_BUS_ADDRESS")); }

HeadUnitDriver::HeadUnitDriver()
{
    for (const char* name :
         {"headunit.ini", "DataManagerConf.ini", "themes", "translations", "documents", "unit"})
        QFile::link(QStringLiteral(HMI_HEADUNIT_DATA "/") + QLatin1String(name), getFolder(name));
    for (const char* name : {"reports", "exported-reports"})
        QDir(mFolder.path()).mkdir(QLatin1String(name));
    HmiTest::writeFile(mFolder, "parked.json", R"({"signals": [
        {"path": "Vehicle.Speed", "type": "double", "value": 0},
        {"path": "Vehicle.TraveledDistance", "type": "double", "value": 18250.4},
        {"path": "Vehicle.TripMeterReading", "type": "double", "value": 23.6},
        {"path": "Vehicle.Powertrain.Range", "type": "int", "value": 412000},
        {"path": "Vehicle.IsMoving", "type": "bool", "value": false},
        {"path": "Vehicle.Powertrain.Transmission.SelectedGear", "type": "string", "value": "P"},
        {"path": "Vehicle.Exterior.AirTemperature", "type": "double", "value": 14.5},
        {"path": "Vehicle.Cabin.Lights.IsNight", "type": "bool", "value": false}]})");
    EXPECT_TRUE(mScreen.start());
    mScreen.setProperty("AT_SPI_BUS", busAddress().toUtf8());
    mTree = std::make_unique<AccessibleTree>(busAddress());
    startSignals();
    startServices();
}

HeadUnitDriver::~HeadUnitDriver()
{
    mProcess.kill();
    mProcess.waitForFinished();
}

void HeadUnitDriver::startSignals()
{
    mSignals = std::make_unique<Simulator>(
        getFolder("signal_service"), QStringList{QStringLiteral("--scenario"), getFolder("parked.json")});
}

void HeadUnitDriver::startServices()
{
    mServices = std::make_unique<Simulator>(QStringList{QStringLiteral("--services"), QStringLiteral("all"),
                                                        QStringLiteral("--reports"), getFolder("reports")});
    EXPECT_TRUE(mServices->says("serving com.korvex.BugReport"));
}

void HeadUnitDriver::launch()
{
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DISPLAY"), mScreen.getName());
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    environment.insert(QStringLiteral("QT_QUICK_BACKEND"), QStringLiteral("software"));
    environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), busAddress());
    // Qt Quick itself leaves data of its controls and pictures behind.
    environment.insert(QStringLiteral("ASAN_OPTIONS"), QStringLiteral("detect_leaks=0"));
    for (const char* name : {"HOME", "XDG_RUNTIME_DIR"})
        environment.insert(QLatin1String(name), mFolder.path());
    mTree->forgetProgram();
    mProcess.setProcessEnvironment(environment);
    mProcess.setProcessChannelMode(QProcess::MergedChannels);
    mProcess.start(QStringLiteral(HMI_HEADUNIT), {getFolder("headunit.ini")});
}

HeadUnitDriver::Result HeadUnitDriver::start()
{
    launch();
    return verdict(find([](const Element& aElement) { return sRail.contains(aElement.area); }).has_value(),
                   QStringLiteral("the rail"));
}

HeadUnitDriver::Result HeadUnitDriver::end()
{
    mProcess.terminate();
    const bool ended = wait([&] { return mProcess.state() == QProcess::NotRunning; });
    const QString log = QString::fromUtf8(mProcess.readAll());
    // What the QML engine complains of begins with the place.
    const bool sound = ended && mProcess.exitStatus() == QProcess::NormalExit && mProcess.exitCode() == 0 &&
                       !log.contains(QLatin1String("qrc:/headunit/qml/"));
    return sound ? testing::AssertionSuccess() : testing::AssertionFailure() << log.toStdString();
}

HeadUnitDriver::Result HeadUnitDriver::shows(const Words& aText)
{
    return verdict(find([&](const Element& aElement) { return aElement.name == aText; }).has_value(), aText);
}

HeadUnitDriver::Result HeadUnitDriver::showsLike(const Words& aPattern)
{
    const QRegularExpression pattern(QRegularExpression::anchoredPattern(aPattern));
    return verdict(
        find([&](const Element& aElement) { return pattern.match(aElement.name).hasMatch(); }).has_value(),
        aPattern);
}

HeadUnitDriver::Result HeadUnitDriver::hides(const Words& aText)
{
    const bool hidden = wait([&] {
        const Elements elements = mTree->read();
        return !elements.isEmpty() &&
               std::none_of(elements.begin(), elements.end(), [&](const Element& aElement) {
                   return aElement.is(Element::Showing) && aElement.name == aText;
               });
    });
    return verdict(hidden, QStringLiteral("no ") + aText);
}

HeadUnitDriver::Result HeadUnitDriver::reads(const Words& aCaption, const Words& aValue)
{
    const auto wanted = [&](const Element& aElement) {
        return (aElement.description == aCaption && aElement.name == aValue) ||
               (aElement.name == aCaption && aElement.description == aValue);
    };
    return verdict(find(wanted).has_value(), aCaption + QStringLiteral(": ") + aValue);
}

HeadUnitDriver::Result HeadUnitDriver::measures(const Words& aName, double aNumber)
{
    const auto wanted = [&](const Element& aElement) {
        return aElement.name == aName && qFuzzyCompare(mTree->getNumber(aElement), aNumber);
    };
    return verdict(find(wanted).has_value(), QStringLiteral("%1 at %2").arg(aName).arg(aNumber));
}

HeadUnitDriver::Result HeadUnitDriver::has(const Words& aName, Element::State aState, bool aOn)
{
    const auto wanted = [&](const Element& aElement) {
        return !aElement.isLabel() && aElement.name == aName && aElement.is(aState) == aOn;
    };
    return verdict(find(wanted).has_value(),
                   QStringLiteral("%1 with state %2 %3").arg(aName).arg(aState).arg(aOn));
}

HeadUnitDriver::Result HeadUnitDriver::isBright(bool aBright)
{
    // Between the rail and what is on the screens there is background.
    const bool good = wait([&] { return (qGray(mScreen.grab().pixel(140, 240)) > 128) == aBright; });
    return verdict(good, QStringLiteral("brightness %1").arg(aBright));
}

/** Whether there is anything but one colour. */
static bool hasInk(const QImage& aImage)
{
    for (int y = 0; y < aImage.height(); ++y)
        for (int x = 0; x < aImage.width(); ++x)
            if (qAbs(qGray(aImage.pixel(x, y)) - qGray(aImage.pixel(0, 0))) > 48)
                return true;
    return false;
}

/** What is scrolled to an edge of the window may be cut. */
static bool isPainted(const AccessibleTree::Element& aElement, const QImage& aImage)
{
    if (!aElement.isLabel() || aElement.name.isEmpty() || !aElement.is(AccessibleTree::Element::Showing))
        return true;
    const QRect area = aElement.area;
    return area.right() <= sWindow.right() && (!sWindow.contains(area) || hasInk(aImage.copy(area)));
}

HeadUnitDriver::Result HeadUnitDriver::isPainted()
{
    QStringList missing;
    const bool good = wait([&] {
        missing.clear();
        const QImage image = mScreen.grab();
        for (const Element& element : mTree->read())
            if (!::isPainted(element, image))
                missing += element.name;
        return missing.isEmpty();
    });
    return verdict(good, QStringLiteral("paint of ") + missing.join(QLatin1Char(',')));
}

HeadUnitDriver::Result HeadUnitDriver::click(const Words& aName)
{
    const auto isOff = [](const Element& aElement) { return sOff.contains(aElement.description); };
    return clickOn([&](const Element& aElement) { return aElement.name == aName && !isOff(aElement); },
                   aName);
}

HeadUnitDriver::Result HeadUnitDriver::poke(const Words& aName)
{
    return clickOn([&](const Element& aElement) { return aElement.name == aName; }, aName);
}

HeadUnitDriver::Result HeadUnitDriver::clickOn(const Wanted& aWanted, const QString& aName)
{
    const auto element = reach(aWanted);
    if (element)
        mScreen.click(element->area.center());
    return verdict(element.has_value(), aName + QStringLiteral(" to click"));
}

HeadUnitDriver::Result HeadUnitDriver::choose(const Words& aName, const Words& aOption)
{
    const Result opened = click(aName);
    if (!opened)
        return opened;
    const Result chosen = click(aOption);
    return chosen ? hides(aOption) : chosen;
}

HeadUnitDriver::Result HeadUnitDriver::type(const Words& aName, const Words& aText)
{
    const Result reached = click(aName);
    const Result ready = reached ? has(aName, Element::Focused, true) : reached;
    if (ready)
        mScreen.type(aText);
    return ready;
}

HeadUnitDriver::Result HeadUnitDriver::drag(const Words& aName, double aPart)
{
    const auto element = reach([&](const Element& aElement) { return aElement.name == aName; });
    if (!element)
        return verdict(false, aName);
    const QRect area = element->area;
    mScreen.press(area.center());
    for (int step = 1; step <= 4; ++step)
        mScreen.moveTo(
            {area.left() + qRound(area.width() * (0.5 + (aPart - 0.5) * step / 4)), area.center().y()});
    return testing::AssertionSuccess();
}

std::optional<HeadUnitDriver::Element> HeadUnitDriver::find(const Wanted& aWanted)
{
    std::optional<Element> found;
    wait([&] {
        const Elements elements = mTree->read();
        const auto good = [&](const Element& aElement) {
            return aWanted(aElement) && (aElement.is(Element::Showing) || isRolledAway(aElement));
        };
        const auto element = std::find_if(elements.rbegin(), elements.rend(), good);
        if (element != elements.rend() && !scrollTo(*element))
            found = *element;
        return found.has_value() || mProcess.state() == QProcess::NotRunning;
    });
    return found;
}

std::optional<HeadUnitDriver::Element> HeadUnitDriver::reach(const Wanted& aWanted)
{
    const auto operable = [&](const Element& aElement) { return !aElement.isLabel() && aWanted(aElement); };
    std::optional<Element> last;
    std::optional<Element> now = find(operable);
    while (now && (!last || last->path != now->path || last->area != now->area)) {
        last = now;
        now = find(operable);
    }
    return now;
}

bool HeadUnitDriver::scrollTo(const Element& aElement)
{
    const QRect area = aElement.area;
    if (area.left() < sContent.left() || (area.top() >= 0 && area.bottom() <= sContent.bottom()))
        return false;
    mScreen.wheel(sContent.center(), area.top() < 0 ? -1 : 1);
    return true;
}

HeadUnitDriver::Result HeadUnitDriver::verdict(bool aGood, const QString& aWish)
{
    if (aGood)
        return testing::AssertionSuccess();
    QString shown;
    for (const Element& element : mTree->read())
        shown += (element.is(Element::Showing) ? QStringLiteral("* ") : QString()) +
                 QStringLiteral("  \"%1\" (%2) role %3 states %4 at %5,%6 %7x%8\n")
                     .arg(element.name, element.description)
                     .arg(element.role)
                     .arg(element.states, 0, 16)
                     .arg(element.area.x())
                     .arg(element.area.y())
                     .arg(element.area.width())
                     .arg(element.area.height());
    return testing::AssertionFailure() << "The screen has not: " << aWish.toStdString() << "\nIt has:\n"
                                       << shown.toStdString() << mProcess.readAll().toStdString();
}
