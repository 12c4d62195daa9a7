#include <hmi/shared/application/modules/HardwareButtonManager.h>

#include <QCoreApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <gtest/gtest.h>
#include <tests/support/FilesAndWaits.h>

using Hmi::Shared::HardwareButtonManager;

namespace {

constexpr bool Repeats = true;

struct HardwareButtons : testing::Test
{
    HardwareButtons()
    {
        const auto log = [this](const char* aKind) {
            return [this, aKind](const QString& aName) { mJournal.append(QLatin1String(aKind) + aName); };
        };
        QObject::connect(&mManager, &HardwareButtonManager::buttonPressed, log("+"));
        QObject::connect(&mManager, &HardwareButtonManager::buttonReleased, log("-"));
        QObject::connect(&mManager, &HardwareButtonManager::buttonLongPressed, log("long "));
    }

    /** True when the key was consumed. */
    bool send(QEvent::Type aType, Qt::Key aKey, bool aRepeats = false)
    {
        QKeyEvent event(aType, aKey, Qt::NoModifier, QString(), aRepeats);
        return QCoreApplication::sendEvent(&mReceiver, &event);
    }

    QObject mReceiver;
    QStringList mJournal;
    HardwareButtonManager mManager{&mReceiver, std::chrono::milliseconds(1)};
};

} // namespace

TEST_F(HardwareButtons, NamesEachPressAndReleaseOnceAndConsumesKeysOfButtonsWhenAsked)
{
    int changes = 0;
    QObject::connect(&mManager, &HardwareButtonManager::consumeEventsChanged, [&changes] { ++changes; });
    for (const bool consume : {false, true, true}) {
        mManager.setConsumeEvents(consume);
        EXPECT_EQ(send(QEvent::KeyPress, Qt::Key_Back), consume);
        EXPECT_EQ(send(QEvent::KeyPress, Qt::Key_Back), consume);
        EXPECT_EQ(send(QEvent::KeyRelease, Qt::Key_Back, Repeats), consume);
        EXPECT_FALSE(send(QEvent::KeyPress, Qt::Key_A));
        EXPECT_EQ(send(QEvent::KeyRelease, Qt::Key_Back), consume);
        EXPECT_EQ(send(QEvent::KeyRelease, Qt::Key_Back), consume);
        EXPECT_EQ(send(QEvent::KeyPress, Qt::Key_Back, Repeats), consume);
        EXPECT_FALSE(mManager.isPressed(QStringLiteral("Back")));
    }
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(HmiTest::joined(mJournal), "+Back,-Back,+Back,-Back,+Back,-Back");
}

TEST_F(HardwareButtons, ReleasesWhatIsHeldWhenTheFocusIsLost)
{
    QApplicationStateChangeEvent active(Qt::ApplicationActive);
    QApplicationStateChangeEvent inactive(Qt::ApplicationInactive);
    QFocusEvent focusOut(QEvent::FocusOut);
    for (QEvent* event : std::initializer_list<QEvent*>{&active, &inactive, &focusOut}) {
        send(QEvent::KeyPress, Qt::Key_HomePage);
        QCoreApplication::sendEvent(&mReceiver, event);
    }
    EXPECT_EQ(HmiTest::joined(mJournal), "+Home,-Home,+Home,-Home");
}

TEST_F(HardwareButtons, TellsALongPressOnce)
{
    send(QEvent::KeyPress, Qt::Key_PowerOff);
    send(QEvent::KeyPress, Qt::Key_Call);
    send(QEvent::KeyRelease, Qt::Key_Call);
    EXPECT_TRUE(HmiTest::waitUntil([this] { return mJournal.contains(QStringLiteral("long Power")); }));
    send(QEvent::KeyRelease, Qt::Key_PowerOff);
    EXPECT_EQ(HmiTest::joined(mJournal), "+Power,+Phone,-Phone,long Power,-Power");
}
