#include <hmi/core/resources/ResourceBundle.h>

#include <QFile>
#include <QFileInfo>
#include <QResource>
#include <limits>

#include <hmi/core/resources/ResourceBundleCheck.h>

namespace Hmi::Core {

static QString findFault(const QString& aFilePath)
{
    QFile file(aFilePath);
    if (!file.open(QIODevice::ReadOnly))
        return QStringLiteral("cannot be opened: ") + file.errorString();
    if (file.size() == 0)
        return QStringLiteral("is empty; install it again");
    if (file.size() > std::numeric_limits<int>::max())
        return QStringLiteral("is larger than 2 GB");
    const uchar* data = file.map(0, file.size());
    if (!data)
        return QStringLiteral("cannot be read: ") + file.errorString();
    return QString::fromLatin1(ResourceBundleCheck(BoundedBytes(data, quint64(file.size()))).findFault());
}

std::unique_ptr<ResourceBundle> ResourceBundle::open(const QString& aFilePath)
{
    const QString mapRoot = QLatin1Char('/') + QFileInfo(aFilePath).completeBaseName();
    QString fault = findFault(aFilePath);
    if (fault.isEmpty() && !QResource::registerResource(aFilePath, mapRoot))
        fault = QStringLiteral("was refused by Qt");
    if (!fault.isEmpty()) {
        qWarning("The resource bundle '%s' %s.", qUtf8Printable(aFilePath), qUtf8Printable(fault));
        return nullptr;
    }
    return std::unique_ptr<ResourceBundle>(new ResourceBundle(aFilePath, mapRoot));
}

ResourceBundle::ResourceBundle(const QString& aFilePath, const QString& aMapRoot) :
    mFilePath(aFilePath), mMapRoot(aMapRoot)
{}

ResourceBundle::~ResourceBundle() { QResource::unregisterResource(mFilePath, mMapRoot); }

QString ResourceBundle::getRoot() const { return QLatin1Char(':') + mMapRoot; }

} // namespace Hmi::Core
