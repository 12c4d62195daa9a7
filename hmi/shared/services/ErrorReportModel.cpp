#include <hmi/shared/services/ErrorReportModel.h>

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

#include <hmi/shared/application/HmiSharedConfigs.h>
#include <hmi/shared/services/ErrorReport.h>

namespace Hmi::Shared {

static bool findFile(const QString& aFilePath)
{
    const bool exists = QFile::exists(aFilePath);
    if (!exists)
        qWarning("Could not find log file %s", qUtf8Printable(aFilePath));
    return exists;
}

ErrorReportModel::ErrorReportModel(QObject* aParent) :
    ErrorReportModel(HmiSharedConfigs::instance()->getErrorReportPath(),
                     HmiSharedConfigs::instance()->getErrorReportExportPath(), aParent)
{}

ErrorReportModel::ErrorReportModel(const QString& aReportFolder, const QString& aExportFolder,
                                   QObject* aParent) :
    QObject(aParent), mExportFolder(aExportFolder)
{
    scanFolder(aReportFolder);
    scanFolder(aReportFolder + QDir::separator() + QStringLiteral("uploaded"));
}

void ErrorReportModel::scanFolder(const QString& aFolder)
{
    QDirIterator entries(aFolder);
    while (entries.hasNext()) {
        const QString path = entries.next();
        if (path.endsWith(QLatin1String(".xml")))
            addErrorReport(path);
    }
}

void ErrorReportModel::addErrorReport(const QString& aPath)
{
    ErrorReport report;
    report.load(aPath);
    mModel.append(new ErrorReportInfo(report));
}

bool ErrorReportModel::copyErrorLog(const QString& aFilePath) const
{
    if (!findFile(aFilePath))
        return false;
    const QFileInfo file(aFilePath);
    // A pipe or a device might never end.
    const bool isCopied =
        file.isFile() && QFile::copy(aFilePath, QDir(mExportFolder).filePath(file.fileName()));
    if (!isCopied)
        qWarning("Could not copy log file %s to uploaded folder", qUtf8Printable(aFilePath));
    return isCopied;
}

bool ErrorReportModel::deleteErrorLog(const QString& aFilePath) const
{
    if (!findFile(aFilePath))
        return false;
    const bool isDeleted = QFile::remove(aFilePath);
    if (!isDeleted)
        qWarning("Could not delete log file %s", qUtf8Printable(aFilePath));
    return isDeleted;
}

} // namespace Hmi::Shared
