#pragma once

#include <QHash>
#include <QJsonObject>
#include <QString>

#include <platform/data-manager/Value.h>

namespace DataManager {

/** The default values of settings, from a JSON object of ids and values. One thread at a time. */
class SettingDefaults
{
public:
    /** An empty path: no defaults. Nor from a file that cannot be read, which is one warning with offset. */
    explicit SettingDefaults(const QString& aPath);

    /** The default of the prototype's type; a whole number is both int and double. Valid until the next call.
     */
    ReadResult read(const QString& aId, const Value& aPrototype);

private:
    QJsonObject mDefaults;
    Value mLatest;
};

} // namespace DataManager
