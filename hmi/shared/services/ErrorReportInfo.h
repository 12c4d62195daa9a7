#pragma once

#include <QObject>

namespace Hmi::Shared {

class ErrorReport;

/**
 * What QML sees of one error report, as it was read; QML may not create it. It outlives its file: a report
 * that is deleted keeps its record. Main thread only.
 */
class Q_DECL_EXPORT ErrorReportInfo : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString backtrace READ getBacktrace CONSTANT)
    Q_PROPERTY(QString logFile READ getLogFile CONSTANT)
    Q_PROPERTY(QString parserVersion READ getParserVersion CONSTANT)
    Q_PROPERTY(QString path READ getPath CONSTANT)
    Q_PROPERTY(QString processName READ getProcessName CONSTANT)
    Q_PROPERTY(QString product READ getProduct CONSTANT)
    Q_PROPERTY(bool selected READ getSelected WRITE setSelected NOTIFY selectedChanged)
    Q_PROPERTY(QString unitId READ getUnitId CONSTANT)

public:
    explicit ErrorReportInfo(const ErrorReport& aReport, QObject* aParent = nullptr);

    QString getBacktrace() const { return mBacktrace; }
    QString getLogFile() const { return mLogFile; }
    QString getParserVersion() const { return mParserVersion; }
    /** Of the report file, for copying and deleting it. */
    QString getPath() const { return mPath; }
    QString getProcessName() const { return mProcessName; }
    QString getProduct() const { return mProduct; }
    /** The user's choice among several reports; false at first. */
    bool getSelected() const { return mSelected; }
    void setSelected(bool aSelected);
    QString getUnitId() const { return mUnitId; }

signals:
    void selectedChanged();

private:
    const QString mBacktrace;
    const QString mLogFile;
    const QString mParserVersion;
    const QString mPath;
    const QString mProcessName;
    const QString mProduct;
    const QString mUnitId;
    bool mSelected = false;
};

} // namespace Hmi::Shared
