#pragma once

#include <QString>
#include <QVariant>

namespace Hmi::Core {

/**
 * What the typed facades of the configuration share: registering the defaults of their keys and reading them
 * back. A facade derives from it privately. Main thread only.
 */
class Q_DECL_EXPORT ConfigFacade
{
protected:
    ConfigFacade() = default;
    ~ConfigFacade() = default;

    static void addPath(const QString& aKey, const QString& aDefault);
    static void addValue(const QString& aKey, const QVariant& aDefault);

    static bool flag(const QString& aKey);
    static int number(const QString& aKey);
    static QString text(const QString& aKey);
    /** The text of a path key, resolved against the folder of the file that holds it. */
    static QString path(const QString& aKey);
};

} // namespace Hmi::Core
