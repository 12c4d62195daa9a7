#include <hmi/core/input/BoundedFile.h>

#include <QFile>
#include <QFileInfo>

namespace Hmi::Core {

QByteArray readBounded(const QString& aFilePath, qint64 aMaximumSize, QString& aProblem)
{
    // Opening a pipe would wait for its other end.
    if (!QFileInfo(aFilePath).isFile()) {
        aProblem = QStringLiteral("it is no regular file");
        return {};
    }
    QFile file(aFilePath);
    if (!file.open(QIODevice::ReadOnly)) {
        aProblem = file.errorString();
        return {};
    }
    QByteArray bytes = file.read(aMaximumSize + 1);
    if (bytes.size() <= aMaximumSize)
        return bytes;
    aProblem = QStringLiteral("it has more than %1 bytes").arg(aMaximumSize);
    return {};
}

} // namespace Hmi::Core
