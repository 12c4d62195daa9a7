#pragma once

#include <QObject>

#include <hmi/core/models/ObjectListModelT.h>
#include <hmi/shared/services/ErrorReportInfo.h>

namespace Hmi::Shared {

/**
 * The error reports that were there when it was created: the entries of the report folder whose names end in
 * ".xml", then those of its folder "uploaded", each in the order of the file system. A folder that does not
 * exist holds none. Faults of files are warnings with the path.
 *
 * copyErrorLog() and deleteErrorLog() take any path, a report's log file for one. They do what this process
 * may do, so their callers are trusted as native code is: never pass on what a user or a peer has typed. Main
 * thread only, in which files are read and copied at once.
 */
class Q_DECL_EXPORT ErrorReportModel : public QObject
{
    Q_OBJECT
    Q_PROPERTY(Hmi::Core::ObjectListModelBase* model READ getModel NOTIFY modelChanged)

public:
    /** With the folders of the configuration. */
    explicit ErrorReportModel(QObject* aParent = nullptr);
    ErrorReportModel(const QString& aReportFolder, const QString& aExportFolder, QObject* aParent = nullptr);

    /** The list of ErrorReportInfo. It is the same for this object's life and tells of its changes itself. */
    Core::ObjectListModelBase* getModel() { return &mModel; }

    /** Appends the report; a file that cannot be read or is malformed gives a record with nothing but its
     * path.
     */
    Q_INVOKABLE void addErrorReport(const QString& aPath);
    /**
     * Copies the file under its own name into the export folder: whole or not at all, never over a file that
     * is there. Of a link its target is copied. What is no regular file is not. False when it was not copied.
     */
    Q_INVOKABLE bool copyErrorLog(const QString& aFilePath) const;
    /** Deletes the file, or of a link the link; folders stay. The record remains in the list. False when
     * nothing was deleted. */
    Q_INVOKABLE bool deleteErrorLog(const QString& aFilePath) const;
    /** The number of records. */
    Q_INVOKABLE int getLength() const { return mModel.getCount(); }

signals:
    void modelChanged();

private:
    void scanFolder(const QString& aFolder);

    const QString mExportFolder;
    Core::ObjectListModelT<ErrorReportInfo*> mModel{this};
};

} // namespace Hmi::Shared
