#include <gtest/gtest.h>
#include <memory>

#include <hmi/core/view/RestrictedModeManager.h>
#include <hmi/core/view/RestrictedModePolicy.h>
#include <tests/support/FilesAndWaits.h>

using Hmi::Core::RestrictedModeManager;
using Hmi::Core::RestrictedModePolicy;
using HmiTest::joined;

namespace {

/** Announces every value, also an unchanged one. */
class SwitchPolicy : public RestrictedModePolicy
{
public:
    explicit SwitchPolicy(bool aOn = false) : mOn(aOn) {}

    void start() override { ++mRunning; }
    void stop() override { --mRunning; }
    bool isRestrictedModeOn() const override { return mOn; }

    void set(bool aOn)
    {
        mOn = aOn;
        emit modeChanged(aOn);
    }

    int mRunning = 0;
    bool mOn;
};

class RestrictedMode : public testing::Test
{
protected:
    RestrictedMode()
    {
        QObject::connect(&*mManager, &RestrictedModeManager::modeChanged, [this](bool on) {
            mModes += on ? "on " : "off ";
            EXPECT_EQ(mManager->isRestrictedModeOn(), on);
        });
    }

    std::unique_ptr<RestrictedModeManager> mManager = std::make_unique<RestrictedModeManager>();
    std::string mModes;
};

} // namespace

TEST_F(RestrictedMode, AnnouncesOnlyRealChangesOfThePolicy)
{
    SwitchPolicy policy;
    mManager->setPolicy(&policy);
    mManager->setPolicy(&policy);
    EXPECT_EQ(policy.mRunning, 1);
    for (const bool on : {false, true, true, false, false, true})
        policy.set(on);
    EXPECT_EQ(mModes, "on off on ");
}

TEST_F(RestrictedMode, FollowsTheInstalledPolicyOnly)
{
    SwitchPolicy first(true);
    SwitchPolicy second;
    mManager->setPolicy(&first);
    mManager->setPolicy(&second);
    EXPECT_EQ(first.mRunning, 0);
    first.set(false);
    first.set(true);
    EXPECT_EQ(mModes, "on off ");
    second.set(true);
    mManager->setPolicy(nullptr);
    EXPECT_EQ(mModes, "on off on off ");
    EXPECT_EQ(second.mRunning, 0);

    mManager->setPolicy(&first);
    mManager.reset();
    EXPECT_EQ(first.mRunning, 0);
    first.set(false);
}

TEST_F(RestrictedMode, AVanishedPolicyLiftsNoRestriction)
{
    auto policy = std::make_unique<SwitchPolicy>(true);
    mManager->setPolicy(policy.get());
    policy.reset();
    EXPECT_TRUE(mManager->isRestrictedModeOn());
    mManager->setPolicy(nullptr);
    EXPECT_FALSE(mManager->isRestrictedModeOn());
    EXPECT_EQ(mModes, "on off ");
}

TEST_F(RestrictedMode, RefusesAndReportsListedActionsWhileOn)
{
    QStringList refusals;
    QObject* source = nullptr;
    QObject::connect(&*mManager, &RestrictedModeManager::actionRestricted,
                     [&](int aCategory, int aMessage, QObject* aSource, const QString& aAction) {
                         refusals.append(
                             QStringLiteral("%1 %2 %3").arg(aCategory).arg(aMessage).arg(aAction));
                         source = aSource;
                     });
    const QString video = QStringLiteral("playVideo");
    mManager->restrictAction(video, 1, 1);
    mManager->restrictAction(video, 3, 7);
    mManager->restrictAction(QStringLiteral("dial"));
    EXPECT_EQ(joined(mManager->getRestrictedActions()), "dial,playVideo");
    EXPECT_TRUE(mManager->requestAction(video)) << "the mode is off";

    SwitchPolicy policy(true);
    mManager->setPolicy(&policy);
    EXPECT_FALSE(mManager->isActionAllowed(video));
    EXPECT_TRUE(mManager->requestAction(QStringLiteral("playRadio")));
    EXPECT_TRUE(refusals.isEmpty());
    EXPECT_FALSE(mManager->requestAction(video, &policy));
    EXPECT_EQ(joined(refusals), "3 7 playVideo");
    EXPECT_EQ(source, &policy);
    mManager->releaseAction(video);
    EXPECT_TRUE(mManager->requestAction(video));
}
