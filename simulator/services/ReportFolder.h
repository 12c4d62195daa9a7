#pragma once

#include <QString>
#include <QStringList>

namespace Hmi::Simulator {

/** The folder in which bug reports are XML files of their own; other files in it are left alone. */
class ReportFolder
{
public:
    /** Empty: there is none, and creating fails. */
    explicit ReportFolder(const QString& aFolder) : mFolder(aFolder) {}

    /** The new file's path; empty where it cannot be written, and the error says why. */
    QString create(QString& aError) const;
    /** Of all reports, in the order of their names. */
    QStringList getPaths() const;
    /** False: some could not be removed. */
    bool clear() const;

private:
    const QString mFolder;
};

} // namespace Hmi::Simulator
