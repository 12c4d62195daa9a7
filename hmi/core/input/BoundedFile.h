#pragma once

#include <QByteArray>
#include <QString>

namespace Hmi::Core {

/**
 * The bytes of a regular file of at most aMaximumSize bytes. On failure an empty array, with aProblem saying
 * what is wrong ("it has more than 100 bytes"); on success aProblem is left as it is.
 */
QByteArray readBounded(const QString& aFilePath, qint64 aMaximumSize, QString& aProblem);

} // namespace Hmi::Core
