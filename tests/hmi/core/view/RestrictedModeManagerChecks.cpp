#include <gtest/gtest.h>
#include <optional>

#include <hmi/core/view/RestrictedModeManager.h>
#include <hmi/core/view/RestrictedModePolicy.h>

using Hmi::Core::RestrictedModeManager;

namespace {

/** Announces every value, also an unchanged one. */
class SwitchPolicy : public Hmi::Core::RestrictedModePolicy
{
public:
    void start() override { ++mRunning; }
    void stop() override { --mRunning; }
    bool isRestrictedModeOn() const override { return mOn; }

    void set(bool aOn)
    {
        mOn = aOn;
        emit modeChanged(aOn);
    }

    int mRunning = 0;
    bool mOn = false;
};

} // namespace

TEST(RestrictedMode, AnnouncesOnlyRealChangesAndIsNotLiftedWhenThePolicyVanishes)
{
    std::optional<RestrictedModeManager> manager(std::in_place);
    std::string modes;
    QObject::connect(&*manager, &RestrictedModeManager::modeChanged, [&](bool on) {
        modes += on ? "on " : "off ";
        EXPECT_EQ(manager->isRestrictedModeOn(), on);
    });
    SwitchPolicy first;
    manager->setPolicy(&first);
    manager->setPolicy(&first);
    EXPECT_EQ(first.mRunning, 1);
    for (const bool on : {false, true, true, false, false, true})
        first.set(on);
    EXPECT_EQ(modes, "on off on ");

    std::optional<SwitchPolicy> second(std::in_place);
    manager->setPolicy(&*second);
    EXPECT_EQ(first.mRunning, 0);
    first.set(false);
    first.set(true);
    EXPECT_EQ(modes, "on off on off ");
    second->set(true);
    second.reset();
    EXPECT_TRUE(manager->isRestrictedModeOn());
    manager->setPolicy(nullptr);
    EXPECT_EQ(modes, "on off on off on off ");

    manager->setPolicy(&first);
    manager.reset();
    EXPECT_EQ(first.mRunning, 0);
}

TEST(RestrictedMode, RefusesAndReportsListedActionsWhileOn)
{
    SwitchPolicy policy;
    RestrictedModeManager manager;
    manager.setPolicy(&policy);
    std::string refusals;
    QObject::connect(&manager, &RestrictedModeManager::actionRestricted,
                     [&](int aCategory, int aMessage, QObject* aSource, const QString& aAction) {
                         EXPECT_EQ(aSource, &policy);
                         refusals += std::to_string(aCategory * 10 + aMessage) + aAction.toStdString();
                     });
    const QString video = QStringLiteral("playVideo");
    manager.restrictAction(video, 1, 1);
    manager.restrictAction(video, 3, 7);
    EXPECT_TRUE(manager.requestAction(video)) << "the mode is off";
    policy.set(true);
    EXPECT_FALSE(manager.isActionAllowed(video));
    EXPECT_TRUE(manager.requestAction(QStringLiteral("playRadio")));
    EXPECT_FALSE(manager.requestAction(video, &policy));
    EXPECT_EQ(refusals, "37playVideo");
    manager.releaseAction(video);
    EXPECT_TRUE(manager.requestAction(video));
}
