#include <hmi/shared/application/LogFileRotation.h>

#include <QFile>
#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <tuple>

#include <hmi/shared/application/LoggingCategory.h>

namespace Hmi::Shared {

namespace {

/** Renames unless the new name is taken. 0 or the error number, EEXIST for a taken name. */
int renameToFreeName(const QByteArray& aFrom, const QByteArray& aTo)
{
    if (::renameat2(AT_FDCWD, aFrom.constData(), AT_FDCWD, aTo.constData(), RENAME_NOREPLACE) == 0)
        return 0;
    if (errno != EINVAL && errno != ENOSYS)
        return errno;
    // The file system does not know the flag.
    struct stat existing;
    if (::lstat(aTo.constData(), &existing) == 0)
        return EEXIST;
    return std::rename(aFrom.constData(), aTo.constData()) == 0 ? 0 : errno;
}

} // namespace

LogFileRotation::LogFileRotation(const QDir& aFolder, const QString& aApplicationName) :
    mFolder(aFolder), mPrefix(aApplicationName + QLatin1Char('_'))
{}

void LogFileRotation::rotate() const
{
    const QVector<LogFile> files = findNewestLast();
    for (const LogFile& file : files) {
        if (file.number > LastKept)
            remove(file);
        else
            moveUp(file);
    }
}

QString LogFileRotation::fileName(qint64 aNumber) const
{
    return mPrefix + QString::number(aNumber) + QLatin1String(".log");
}

qint64 LogFileRotation::numberOf(const QString& aFileName) const
{
    QString number = aFileName.mid(mPrefix.size());
    if (number.endsWith(QLatin1String(".log")))
        number.chop(4);
    return number.toLongLong();
}

QVector<LogFileRotation::LogFile> LogFileRotation::findNewestLast() const
{
    QVector<LogFile> files;
    const QStringList names = mFolder.entryList(QDir::Files | QDir::NoSymLinks | QDir::Hidden);
    for (const QString& name : names) {
        if (name.startsWith(mPrefix))
            files.append({name, numberOf(name)});
    }
    // Of two files with one number, app_2.log goes before app_02.log.
    const auto rank = [this](const LogFile& aFile) {
        return std::make_tuple(-aFile.number, aFile.name != fileName(aFile.number));
    };
    std::stable_sort(files.begin(), files.end(),
                     [&](const LogFile& aLeft, const LogFile& aRight) { return rank(aLeft) < rank(aRight); });
    return files;
}

void LogFileRotation::remove(const LogFile& aFile) const
{
    QFile file(mFolder.filePath(aFile.name));
    if (!file.remove())
        qCWarning(hmiShared, "Old log file %s cannot be deleted: %s. Delete it by hand.",
                  qUtf8Printable(aFile.name), qUtf8Printable(file.errorString()));
}

void LogFileRotation::moveUp(const LogFile& aFile) const
{
    const QString target = fileName(aFile.number + 1);
    const int error = target == currentFileName()
                          ? EEXIST
                          : renameToFreeName(QFile::encodeName(mFolder.filePath(aFile.name)),
                                             QFile::encodeName(mFolder.filePath(target)));
    if (error != 0)
        qCWarning(hmiShared,
                  "Log file %s stays as it is, it cannot become %s: %s. Rename or delete it by hand.",
                  qUtf8Printable(aFile.name), qUtf8Printable(target),
                  error == EEXIST ? "that name is taken" : qUtf8Printable(qt_error_string(error)));
}

} // namespace Hmi::Shared
