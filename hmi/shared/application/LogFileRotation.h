#pragma once

#include <QDir>
#include <QString>
#include <QVector>

namespace Hmi::Shared {

/**
 * The log files of one application in one folder: `<name>_1.log` of the current run, `<name>_2.log` of the
 * run before, up to `<name>_5.log`.
 *
 * Every regular file `<name>_*` takes part with the decimal number between `<name>_` and the ending .log;
 * what is no number of 64 bits counts as 0. Links and folders are left alone.
 *
 * No file is ever overwritten. A file whose next name is taken stays as it is, and so does one that would
 * become `<name>_1.log`; each gives a warning that names both.
 */
class LogFileRotation
{
public:
    LogFileRotation(const QDir& aFolder, const QString& aApplicationName);

    /** The name, without folder, of the current run's file. */
    QString currentFileName() const { return fileName(CurrentRun); }

    /** Deletes the files numbered above 4 and counts the others up by one, so that the current run's name is
     * free. */
    void rotate() const;

private:
    struct LogFile
    {
        QString name;
        qint64 number = 0;
    };

    static constexpr qint64 CurrentRun = 1;
    static constexpr qint64 LastKept = 4;

    QString fileName(qint64 aNumber) const;
    qint64 numberOf(const QString& aFileName) const;
    QVector<LogFile> findNewestLast() const;
    void remove(const LogFile& aFile) const;
    void moveUp(const LogFile& aFile) const;

    QDir mFolder;
    QString mPrefix;
};

} // namespace Hmi::Shared
