#include <hmi/shared/services/ProductInfo.h>

#include <QByteArray>
#include <QFile>
#include <QFileInfo>
#include <QHash>

#include <hmi/shared/application/HmiSharedConfigs.h>
#include <hmi/shared/application/LoggingCategory.h>

namespace Hmi::Shared {

static QString textOf(QByteArray aLine)
{
    if (aLine.endsWith('\n'))
        aLine.chop(1);
    if (aLine.endsWith('\r'))
        aLine.chop(1);
    return QString::fromUtf8(aLine.constData()); // up to a NUL
}

/** False when the file has no first line that can be read. */
static bool readFirstLine(const QString& aFilePath, QString& aText)
{
    QFile file(aFilePath);
    // Opening a pipe would wait for its other end.
    if (!QFileInfo(aFilePath).isFile() || !file.open(QFile::ReadOnly))
        return false;
    // Less one for the NUL that it is counted with.
    const QByteArray line = file.readLine(ProductInfo::MaximumLineLength + 2);
    const bool isCut = line.size() > ProductInfo::MaximumLineLength && !line.endsWith('\n');
    if (isCut || file.error() != QFile::NoError)
        return false;
    aText = textOf(line);
    return true;
}

static QString readHardwareText(const QString& aFilePath, const char* aFailure)
{
    static QHash<QString, QString> sKnown;
    QString& text = sKnown[aFilePath];
    if (text.isEmpty() && !readFirstLine(aFilePath, text))
        qCCritical(hmiShared, "%s", aFailure);
    return text;
}

ProductInfo::ProductInfo(QObject* aParent) :
    ProductInfo(HmiSharedConfigs::instance()->getProductInfoFiles(), aParent)
{}

ProductInfo::ProductInfo(const ProductInfoFiles& aFiles, QObject* aParent) : QObject(aParent), mFiles(aFiles)
{}

QString ProductInfo::getHardwareEsn() const
{
    return readHardwareText(mFiles.hardwareEsn, "Failed to read hardware ESN file");
}

QString ProductInfo::getHardwareVersion() const
{
    return readHardwareText(mFiles.hardwareVersion, "Failed to read PCB version file");
}

int ProductInfo::getSoftwareVersionCode() const
{
    using namespace ProductInfoConstants;
    return softwareVersionCode(SoftwareVersionMajor, SoftwareVersionMinor, SoftwareVersionMicro);
}

QString ProductInfo::getSoftwareVersionString() const
{
    QString version;
    if (readFirstLine(mFiles.softwareVersion, version))
        return version;
    qCCritical(hmiShared, "ProductInfo::getSoftwareVersionString -- Failed to read software version file");
    return QStringLiteral("XX.XX.XX");
}

} // namespace Hmi::Shared
