#pragma once

#include <hmi/shared/settings/Setting.h>

namespace Hmi::Shared {

/**
 * A setting whose value follows from the locale: it starts at its default and is kept in memory only. It
 * takes a value of any type.
 */
class Q_DECL_EXPORT SettingLocaleBased : public Setting
{
    Q_OBJECT

public:
    SettingLocaleBased(const QString& aKey, const QString& aName, SettingType aType, const QVariant& aDefault,
                       SettingCategory aCategory, QObject* aParent = nullptr);

    QVariant getValue() override;
    /** Nothing to restore: true. */
    bool restoreDefault() override;
    /** False for an equal value. */
    bool setValue(const QVariant& aValue) override;
    bool isStored() const override { return false; }
};

} // namespace Hmi::Shared
