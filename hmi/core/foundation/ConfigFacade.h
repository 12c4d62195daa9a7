#pragma once

#include <QString>
#include <QVariant>

namespace Hmi::Core {

class ConfigManager;

/**
 * What the typed facades of the configuration share: registering the defaults of their keys and reading them
 * back. A facade derives from it privately. Main thread only.
 */
class Q_DECL_EXPORT ConfigFacade
{
protected:
    /** The configuration must outlive the facade. */
    explicit ConfigFacade(ConfigManager& aConfig) : mConfig(aConfig) {}
    ~ConfigFacade() = default;

    void addPath(const QString& aKey, const QString& aDefault);
    void addValue(const QString& aKey, const QVariant& aDefault);

    bool hasValue(const QString& aKey) const;
    bool flag(const QString& aKey) const;
    int number(const QString& aKey) const;
    QString text(const QString& aKey) const;
    /** The text of a path key, resolved against the folder of the file that holds it. */
    QString path(const QString& aKey) const;

private:
    ConfigManager& mConfig;
};

} // namespace Hmi::Core
