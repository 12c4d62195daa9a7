#include <hmi/shared/vehicle/VolumePolicyBase.h>

#include <QScopedValueRollback>

#include <hmi/shared/application/LoggingCategory.h>
#include <hmi/shared/settings/Setting.h>
#include <hmi/shared/settings/SettingsManager.h>

namespace Hmi::Shared {

static const QString sVolumeName = QStringLiteral("guidanceVolume");
static const QString sInstructionsName = QStringLiteral("navigationInstructions");

/** Values of the setting "navigationInstructions". */
static constexpr int InstructionsMuted = 1;
static constexpr int InstructionsSpoken = 2;

static constexpr int VolumeDefault = 10;

VolumePolicyBase::VolumePolicyBase(QObject* aParent) : QObject(aParent)
{
    SettingsManager* const manager = SettingsManager::instance();
    if (!manager->addSetting(new Setting(QStringLiteral("SettingsR7GuidanceVolume"), sVolumeName,
                                         Setting::SettingTypeInt, VolumeDefault,
                                         Setting::SettingCategoryUser)))
        qCDebug(hmiShared, "Failed to add setting");
    if (const Setting* volume = manager->getSetting(sVolumeName))
        connect(volume, &Setting::valueChanged, this, &VolumePolicyBase::onVolumeSettingChanged);
    if (const Setting* instructions = manager->getSetting(sInstructionsName))
        connect(instructions, &Setting::valueChanged, this, &VolumePolicyBase::onMutedSettingChanged);
}

static bool write(const QString& aName, int aValue)
{
    Setting* const setting = SettingsManager::instance()->getSetting(aName);
    return setting && setting->setValue(aValue);
}

bool VolumePolicyBase::getMuted()
{
    return SettingsManager::instance()->getSettingValue(sInstructionsName).toInt() == InstructionsMuted;
}

int VolumePolicyBase::getVolume()
{
    return SettingsManager::instance()->getSettingValue(sVolumeName).toInt();
}

bool VolumePolicyBase::setMuted(bool aMuted)
{
    const bool wasMuted = getMuted();
    bool written = false;
    {
        const QScopedValueRollback<bool> writing(mWriting, true);
        written = write(sInstructionsName, aMuted ? InstructionsMuted : InstructionsSpoken);
    }
    if (written && wasMuted != aMuted)
        emit mutedChanged(aMuted);
    return written;
}

bool VolumePolicyBase::setVolume(int aVolume)
{
    if (aVolume < mVolumeMinimum || aVolume > mVolumeMaximum)
        return false;
    {
        const QScopedValueRollback<bool> writing(mWriting, true);
        if (!write(sVolumeName, aVolume))
            return false;
    }
    if (getMuted())
        setMuted(false);
    emit volumeChanged(aVolume);
    return true;
}

void VolumePolicyBase::onVolumeSettingChanged()
{
    if (!mWriting)
        emit volumeChanged(getVolume());
}

void VolumePolicyBase::onMutedSettingChanged()
{
    if (!mWriting)
        emit mutedChanged(getMuted());
}

} // namespace Hmi::Shared
