#pragma once

#include <QList>
#include <QSize>
#include <QString>

#include <hmi/core/foundation/ConfigFacade.h>
#include <hmi/core/foundation/SingletonCpp.h>

namespace Hmi::Core {

/**
 * Typed access to the group "HmiCore" of the configuration, and the owner of its defaults. Created after the
 * file was loaded; each getter reads one key, named as the getter. QML reaches it as HmiCore.configs and may
 * not create it.
 *
 * Paths are returned ready for use: a relative path of the file is taken relative to the file's folder, a
 * relative default relative to the working directory.
 */
class Q_DECL_EXPORT HmiCoreConfigs : public SingletonCpp<HmiCoreConfigs>, private ConfigFacade
{
    Q_OBJECT
    friend class SingletonCpp<HmiCoreConfigs>;

public:
    /** Over a configuration other than the process's; it must outlive the facade. */
    explicit HmiCoreConfigs(ConfigManager& aConfig);

    Q_INVOKABLE bool getAlphaChannelEnabled() const;
    Q_INVOKABLE QString getFontFamilyDefault() const;
    Q_INVOKABLE QString getGnuBindir() const;
    Q_INVOKABLE QString getGnuDatadir() const;
    Q_INVOKABLE QString getGnuLibdir() const;
    Q_INVOKABLE QString getGnuLocalstatedir() const;
    Q_INVOKABLE QString getGnuPrefix() const;
    Q_INVOKABLE QString getGnuSysconfdir() const;
    Q_INVOKABLE bool getHighlightSystemEnabled() const;
    /** Milliseconds. */
    Q_INVOKABLE int getIntervalPressAndHold() const;
    Q_INVOKABLE bool getItemIdentifierEnabled() const;
    Q_INVOKABLE QString getKeyboardsPath() const;
    Q_INVOKABLE QString getLanguagesPath() const;
    Q_INVOKABLE int getPrimaryDisplayIndex() const;
    Q_INVOKABLE int getSecondaryDisplayIndex() const;
    /**
     * The sizes of a list such as "800x480, 1024x768", in pixels and in the order listed. Sizes are separated
     * by commas, semicolons or blanks; blanks around the "x" do not matter. An entry that is no size of at
     * least 1x1 is reported as a warning and skipped.
     */
    Q_INVOKABLE QList<QSize> getPrimaryDisplayResolution() const;
    /** As getPrimaryDisplayResolution(). */
    Q_INVOKABLE QList<QSize> getSecondaryDisplayResolution() const;
    /** The file of the string database. */
    Q_INVOKABLE QString getStringDatabaseName() const;
    /** How many words of the user the suggestions keep at most. */
    Q_INVOKABLE int getSuggestionsUserWordsLimit() const;
    Q_INVOKABLE QString getSuggestionsPath() const;
    Q_INVOKABLE QString getThemesPath() const;
    Q_INVOKABLE QString getResourceCachePath() const;
    /** Pixels. */
    Q_INVOKABLE int getTouchDragStartDistance() const;
    Q_INVOKABLE bool getUseSecondaryDisplay() const;
    /** The name of a Qt::WindowState, such as "WindowFullScreen". */
    Q_INVOKABLE QString getWindowState() const;
    Q_INVOKABLE bool getWindowStaysOnTopHint() const;

private:
    HmiCoreConfigs();
};

} // namespace Hmi::Core
