#pragma once

#include <QObject>

namespace Hmi::Shared {

/**
 * The volume of the navigation's guidance, for a slider and a mute button. Both values are settings of the
 * active profile ("guidanceVolume", which it publishes, and the shared "navigationInstructions"), so they
 * persist, and a change that comes from there, of another profile too, is told like one made here. Products
 * refine it by overriding. Main thread only.
 */
class Q_DECL_EXPORT VolumePolicyBase : public QObject
{
    Q_OBJECT
    Q_PROPERTY(bool muted READ getMuted WRITE setMuted NOTIFY mutedChanged)
    Q_PROPERTY(int volume READ getVolume WRITE setVolume NOTIFY volumeChanged)
    Q_PROPERTY(int volumeIncrement MEMBER mVolumeIncrement CONSTANT)
    Q_PROPERTY(int volumeMaximum MEMBER mVolumeMaximum CONSTANT)
    Q_PROPERTY(int volumeMinimum MEMBER mVolumeMinimum CONSTANT)

public:
    /** The shared settings have to be published before. */
    explicit VolumePolicyBase(QObject* aParent = nullptr);

    virtual bool getMuted();
    virtual int getVolume();
    /** False when the setting cannot be stored. */
    virtual bool setMuted(bool aMuted);
    /**
     * False, without a signal, when the volume is out of its bounds or cannot be stored. Choosing a volume
     * ends muting, and is told also when it is the same.
     */
    virtual bool setVolume(int aVolume);

signals:
    void mutedChanged(bool aMuted);
    void volumeChanged(int aNewVolume);

private:
    void onVolumeSettingChanged();
    void onMutedSettingChanged();

    int mVolumeIncrement = 1;
    int mVolumeMaximum = 40;
    int mVolumeMinimum = 0;
    bool mWriting = false; ///< the setting's signal is this object's own doing
};

} // namespace Hmi::Shared
