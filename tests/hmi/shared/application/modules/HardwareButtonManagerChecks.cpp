#include <hmi/shared/application/modules/HardwareButtonManager.h>

#include <QCoreApplication>
#include <QEventLoop>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QTimer>
#include <gtest/gtest.h>

using Hmi::Shared::HardwareButtonManager;

namespace {

constexpr bool Repeats = true;

/** Counts the keys that reach it. */
class Receiver : public QObject
{
public:
    int keys = 0;

protected:
    bool event(QEvent* aEvent) override
    {
        if (aEvent->type() == QEvent::KeyPress || aEvent->type() == QEvent::KeyRelease)
            ++keys;
        return QObject::event(aEvent);
    }
};

struct HardwareButtons : testing::Test
{
    HardwareButtons() { watch(mManager); }

    void watch(HardwareButtonManager& aManager)
    {
        const auto log = [this](const char* aKind) {
            return [this, aKind](const QString& aName) { mJournal.append(QLatin1String(aKind) + aName); };
        };
        QObject::connect(&aManager, &HardwareButtonManager::buttonPressed, log("+"));
        QObject::connect(&aManager, &HardwareButtonManager::buttonReleased, log("-"));
        QObject::connect(&aManager, &HardwareButtonManager::buttonLongPressed, log("long "));
    }

    void send(QEvent::Type aType, Qt::Key aKey, bool aRepeats = false)
    {
        QKeyEvent event(aType, aKey, Qt::NoModifier, QString(), aRepeats);
        QCoreApplication::sendEvent(&mReceiver, &event);
    }

    QString takeJournal() { return std::exchange(mJournal, {}).join(QLatin1Char(' ')); }

    Receiver mReceiver;
    QStringList mJournal;
    HardwareButtonManager mManager{&mReceiver, std::chrono::hours(1)};
};

} // namespace

TEST_F(HardwareButtons, NamesEachPressAndReleaseOnce)
{
    send(QEvent::KeyPress, Qt::Key_VolumeUp);
    send(QEvent::KeyPress, Qt::Key_VolumeUp);
    send(QEvent::KeyRelease, Qt::Key_VolumeUp, Repeats);
    send(QEvent::KeyPress, Qt::Key_VolumeUp, Repeats);
    send(QEvent::KeyPress, Qt::Key_Back);
    send(QEvent::KeyPress, Qt::Key_A);
    EXPECT_TRUE(mManager.isPressed(QStringLiteral("VolumeUp")));
    send(QEvent::KeyRelease, Qt::Key_VolumeUp);
    send(QEvent::KeyRelease, Qt::Key_VolumeUp);
    EXPECT_FALSE(mManager.isPressed(QStringLiteral("VolumeUp")));
    EXPECT_TRUE(mManager.isPressed(QStringLiteral("Back")));
    EXPECT_EQ(takeJournal(), QStringLiteral("+VolumeUp +Back -VolumeUp"));
}

TEST_F(HardwareButtons, ConsumesOnlyTheKeysOfButtonsAndOnlyWhenAsked)
{
    int changes = 0;
    QObject::connect(&mManager, &HardwareButtonManager::consumeEventsChanged, [&changes] { ++changes; });
    for (const bool consume : {false, true, true}) {
        mManager.setConsumeEvents(consume);
        mReceiver.keys = 0;
        send(QEvent::KeyPress, Qt::Key_Menu);
        send(QEvent::KeyPress, Qt::Key_Menu, Repeats);
        send(QEvent::KeyRelease, Qt::Key_Menu);
        send(QEvent::KeyPress, Qt::Key_A);
        EXPECT_EQ(mReceiver.keys, consume ? 1 : 4);
        EXPECT_EQ(takeJournal(), QStringLiteral("+Menu -Menu"));
    }
    EXPECT_EQ(changes, 1);
}

TEST_F(HardwareButtons, ReleasesWhatIsHeldWhenTheFocusIsLost)
{
    QApplicationStateChangeEvent active(Qt::ApplicationActive);
    QApplicationStateChangeEvent inactive(Qt::ApplicationInactive);
    QFocusEvent focusOut(QEvent::FocusOut);
    const struct
    {
        QEvent* event;
        const char* journal;
    } rows[] = {{&active, "+Home"}, {&inactive, "-Home"}, {&inactive, ""}, {&focusOut, "+Home -Home"}};
    for (const auto& row : rows) {
        if (row.journal[0] == '+')
            send(QEvent::KeyPress, Qt::Key_HomePage);
        QCoreApplication::sendEvent(&mReceiver, row.event);
        EXPECT_EQ(takeJournal(), QLatin1String(row.journal));
    }
}

TEST_F(HardwareButtons, TellsALongPressOnce)
{
    HardwareButtonManager manager(&mReceiver, std::chrono::milliseconds(1));
    mManager.disconnect();
    watch(manager);
    QEventLoop loop;
    QTimer::singleShot(10000, &loop, &QEventLoop::quit);
    QObject::connect(&manager, &HardwareButtonManager::buttonLongPressed, &loop, &QEventLoop::quit);
    send(QEvent::KeyPress, Qt::Key_PowerOff);
    send(QEvent::KeyPress, Qt::Key_Call);
    send(QEvent::KeyRelease, Qt::Key_Call);
    loop.exec();
    EXPECT_TRUE(manager.isPressed(QStringLiteral("Power")));
    send(QEvent::KeyRelease, Qt::Key_PowerOff);
    EXPECT_EQ(takeJournal(), QStringLiteral("+Power +Phone -Phone long Power -Power"));
}
