#pragma once

#include <QString>

#include <hmi/core/resources/XmlLoader.h>

namespace Hmi::Shared {

/**
 * Reader of one error report, the XML file that the platform writes when a process of the head unit crashes.
 * Elements are found by the tags below, at any depth; where one is there twice the last counts.
 */
class Q_DECL_EXPORT ErrorReport : private Core::XmlLoader
{
public:
    static const QString TAG_BACKTRACE;
    static const QString TAG_LOGFILE;
    static const QString TAG_PARSER_VERSION;
    static const QString TAG_PROCESS_NAME;
    static const QString TAG_PRODUCT;
    static const QString TAG_SHUTDOWN_INFO;
    static const QString TAG_UNIT_ID;

    ErrorReport();
    // The callbacks are bound to this object.
    Q_DISABLE_COPY_MOVE(ErrorReport)

    /**
     * False, after a warning with the path, when the file cannot be read or is malformed: all fields but the
     * path are empty then, those that stood before the damage, too.
     */
    bool load(const QString& aFilePath);

    QString getBacktrace() const { return mFields.backtrace; }
    QString getLogFile() const { return mFields.logFile; }
    QString getParserVersion() const { return mFields.parserVersion; }
    /** Of the report file itself, as it was given. */
    QString getPath() const { return mPath; }
    QString getProcessName() const { return mFields.processName; }
    QString getProduct() const { return mFields.product; }
    QString getShutdownInfo() const { return mFields.shutdownInfo; }
    QString getUnitId() const { return mFields.unitId; }

private:
    struct Fields
    {
        QString backtrace;
        QString logFile;
        QString parserVersion;
        QString processName;
        QString product;
        QString shutdownInfo;
        QString unitId;
    };
    using OnStartTag = void (ErrorReport::*)(const QXmlStreamReader&);
    using OnEndTag = void (ErrorReport::*)(const QString&);

    void addTag(const QString& aTag, OnStartTag aOnStart, OnEndTag aOnEnd);

    void onStartTagBacktrace(const QXmlStreamReader& aReader);
    void onEndTagBacktrace(const QString& aText) { mFields.backtrace = aText; }
    void onStartTagLogFile(const QXmlStreamReader& aReader);
    void onEndTagLogFile(const QString& aText) { mFields.logFile = aText; }
    void onStartTagParserVersion(const QXmlStreamReader& aReader);
    void onEndTagParserVersion(const QString& aText) { mFields.parserVersion = aText; }
    void onStartTagProcessName(const QXmlStreamReader& aReader);
    void onEndTagProcessName(const QString& aText) { mFields.processName = aText; }
    void onStartTagProduct(const QXmlStreamReader& aReader);
    void onEndTagProduct(const QString& aText) { mFields.product = aText; }
    void onStartTagShutdownInfo(const QXmlStreamReader& aReader);
    void onEndTagShutdownInfo(const QString& aText) { mFields.shutdownInfo = aText; }
    void onStartTagUnitId(const QXmlStreamReader& aReader);
    void onEndTagUnitId(const QString& aText) { mFields.unitId = aText; }

    QString mPath;
    Fields mFields;
};

} // namespace Hmi::Shared
