#pragma once

#include <hmi/shared/settings/SettingLocale.h>

namespace Hmi::Shared {

/**
 * The locale of the operating system, in place of SettingLocale where the user cannot choose one. It is never
 * stored. The HMI should not change it: that takes effect until the process ends, and is a warning.
 */
class Q_DECL_EXPORT SettingLocaleSystem : public SettingLocale
{
    Q_OBJECT

public:
    explicit SettingLocaleSystem(QObject* aParent = nullptr);

    QVariant getValue() override;
    /** Nothing to restore: true. */
    bool restoreDefault() override;
    /** False for an equal value. */
    bool setValue(const QVariant& aValue) override;
    bool isStored() const override { return false; }

    /** False for a locale of the same name. */
    Q_INVOKABLE bool setLocaleForTest(const QLocale& a_newLocale);
};

} // namespace Hmi::Shared
