#include <hmi/shared/vehicle/VolumePolicyBase.h>

#include <QSignalSpy>
#include <climits>
#include <tests/hmi/shared/settings/SettingsStore.h>

#include <hmi/shared/settings/SettingsManager.h>

using Hmi::Shared::SettingsManager;
using Hmi::Shared::VolumePolicyBase;

namespace {

struct GuidanceVolume : HmiTest::SettingsStore
{
    GuidanceVolume()
    {
        start();
        SettingsManager::addSharedSettings();
        policy = std::make_unique<VolumePolicyBase>();
        volumes = std::make_unique<QSignalSpy>(policy.get(), &VolumePolicyBase::volumeChanged);
        mutings = std::make_unique<QSignalSpy>(policy.get(), &VolumePolicyBase::mutedChanged);
    }
    ~GuidanceVolume() override
    {
        policy.reset();
        SettingsManager::instance()->clear();
        QLocale::setDefault(locale);
    }

    const QLocale locale;
    std::unique_ptr<VolumePolicyBase> policy;
    std::unique_ptr<QSignalSpy> volumes;
    std::unique_ptr<QSignalSpy> mutings;
};

} // namespace

TEST_F(GuidanceVolume, StaysInItsBoundsAndTellsEachChoice)
{
    EXPECT_EQ(policy->getVolume(), 10);
    const std::pair<int, bool> choices[] = {{100, false}, {-1, false}, {INT_MAX, false}, {41, false},
                                            {0, true},    {40, true},  {25, true},       {25, true}};
    int told = 0;
    for (const auto& [volume, accepted] : choices) {
        const int before = policy->getVolume();
        EXPECT_EQ(policy->setVolume(volume), accepted) << volume;
        EXPECT_EQ(policy->getVolume(), accepted ? volume : before);
        told += accepted;
        ASSERT_EQ(volumes->count(), told);
    }
    EXPECT_EQ(volumes->last()[0].toInt(), 25);
    EXPECT_EQ(mutings->count(), 0);
}

TEST_F(GuidanceVolume, IsMutedUntilAVolumeIsChosen)
{
    EXPECT_FALSE(policy->getMuted());
    EXPECT_TRUE(policy->setMuted(false));
    EXPECT_TRUE(policy->setMuted(true) && policy->setMuted(true));
    EXPECT_EQ(mutings->count(), 1);
    EXPECT_EQ(SettingsManager::instance()->getSettingValue(QStringLiteral("navigationInstructions")), 1);
    EXPECT_FALSE(policy->setVolume(41));
    EXPECT_TRUE(policy->getMuted()) << "no choice was made";
    EXPECT_TRUE(policy->setVolume(10));
    EXPECT_FALSE(policy->getMuted());
    ASSERT_EQ(mutings->count(), 2);
    EXPECT_FALSE(mutings->at(1)[0].toBool());
    EXPECT_EQ(volumes->count(), 1) << "told, though the volume is the same";
}

TEST_F(GuidanceVolume, IsOneForAllPoliciesAndForWhoChangesTheSetting)
{
    warns("A setting with name guidanceVolume has already been added to SettingsManager.*");
    VolumePolicyBase second;
    EXPECT_EQ(policy->getVolume(), 10);
    EXPECT_FALSE(policy->getMuted());
    EXPECT_TRUE(second.setVolume(7));
    EXPECT_EQ(policy->getVolume(), 7);
    ASSERT_EQ(volumes->count(), 1);
    EXPECT_EQ(volumes->at(0)[0].toInt(), 7);
    EXPECT_TRUE(second.setMuted(true));
    ASSERT_EQ(mutings->count(), 1);
    EXPECT_TRUE(mutings->at(0)[0].toBool());
}
