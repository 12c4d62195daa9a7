#pragma once

#include "AccessibleTree.h"
#include "VirtualScreen.h"

#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <tests/process/Simulator.h>

/** What is on the screen, in UTF-8 where it is written in a check. */
struct Words : QString
{
    Words(const char* aText) : QString(QString::fromUtf8(aText)) {}
    Words(const QString& aText) : QString(aText) {}
};

/**
 * The head unit as a process in a window, operated by pointer and keyboard and read as a screen reader does,
 * with its two simulators: the vehicle's signals, and the services on the bus. Everything is found by the
 * words that it has on the screen (or beside it, for who cannot see it). Every look waits until what is
 * expected is there; when it does not come, the failure says what is there in its place.
 */
class HeadUnitDriver
{
public:
    using Result = testing::AssertionResult;

    /** The private bus has to be there. */
    HeadUnitDriver();
    ~HeadUnitDriver();
    Q_DISABLE_COPY(HeadUnitDriver)

    /** The vehicle stands, in park. */
    void startSignals();
    void stopSignals() { mSignals.reset(); }
    void startServices();
    void stopServices() { mServices.reset(); }
    Simulator& getSignals() { return *mSignals; }
    Simulator& getServices() { return *mServices; }
    /** A folder of the head unit: "reports" or "exported-reports". */
    QString getFolder(const char* aName) const { return mFolder.filePath(QLatin1String(aName)); }

    /** The progress that another program's installation has, for which the start waits. */
    void setInstallation(const QByteArray& aProgress)
    {
        HmiTest::writeFile(mFolder, "installation", aProgress);
    }
    void launch();
    /** Until the first screen shows. */
    Result start();
    /** SIGTERM, upon which it has to end in order. */
    Result end();

    Result shows(const Words& aText);
    /** A text that the regular expression matches as a whole. */
    Result showsLike(const Words& aPattern);
    Result hides(const Words& aText);
    /** Whether the value with this caption, such as a number or a choice, is this text. */
    Result reads(const Words& aCaption, const Words& aValue);
    Result measures(const Words& aName, double aNumber);
    /** Whether the button can be pushed. */
    Result isOn(const Words& aName) { return reads(aName, ""); }
    Result isChecked(const Words& aName, bool aChecked) { return has(aName, Element::Checked, aChecked); }
    /** Whether the background is bright, as by day. */
    Result isBright(bool aBright);
    /** Whether each text that shows is painted, and inside the window. */
    Result isPainted();

    /** With the pointer, after scrolling to it where necessary. */
    Result click(const Words& aName);
    /** Without looking whether it can be. */
    Result poke(const Words& aName);
    /** Of the list that opens, the option; the list is gone then. */
    Result choose(const Words& aName, const Words& aOption);
    Result type(const Words& aName, const Words& aText);
    /** Holds the knob of a slider and moves it to this part of its way; release() ends it. */
    Result drag(const Words& aName, double aPart);
    void release() { mScreen.release(); }

private:
    using Element = AccessibleTree::Element;
    using Elements = QVector<Element>;
    using Wanted = std::function<bool(const Element&)>;

    Result has(const Words& aName, Element::State aState, bool aOn);
    Result clickOn(const Wanted& aWanted, const QString& aName);
    std::optional<Element> find(const Wanted& aWanted);
    /** Until what can be operated rests. */
    std::optional<Element> reach(const Wanted& aWanted);
    /** A step towards what is rolled away; false when it shows. */
    bool scrollTo(const Element& aElement);
    Result verdict(bool aGood, const QString& aWish);

    QTemporaryDir mFolder;
    VirtualScreen mScreen;
    std::unique_ptr<AccessibleTree> mTree;
    std::unique_ptr<Simulator> mSignals;
    std::unique_ptr<Simulator> mServices;
    QProcess mProcess;
};
