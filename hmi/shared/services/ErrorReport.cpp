#include <hmi/shared/services/ErrorReport.h>

#include <QXmlStreamReader>

namespace Hmi::Shared {

const QString ErrorReport::TAG_BACKTRACE = QStringLiteral("Backtrace");
const QString ErrorReport::TAG_LOGFILE = QStringLiteral("logfile");
const QString ErrorReport::TAG_PARSER_VERSION = QStringLiteral("ParserVersion");
const QString ErrorReport::TAG_PROCESS_NAME = QStringLiteral("ProcessName");
const QString ErrorReport::TAG_PRODUCT = QStringLiteral("Product");
const QString ErrorReport::TAG_SHUTDOWN_INFO = QStringLiteral("ShutdownInfo");
const QString ErrorReport::TAG_UNIT_ID = QStringLiteral("UnitId");

static void storeText(const QXmlStreamReader& aReader, QString& aField)
{
    if (!aReader.text().isEmpty())
        aField = aReader.text().toString();
}

ErrorReport::ErrorReport()
{
    addTag(TAG_BACKTRACE, &ErrorReport::onStartTagBacktrace, &ErrorReport::onEndTagBacktrace);
    addTag(TAG_LOGFILE, &ErrorReport::onStartTagLogFile, &ErrorReport::onEndTagLogFile);
    addTag(TAG_PARSER_VERSION, &ErrorReport::onStartTagParserVersion, &ErrorReport::onEndTagParserVersion);
    addTag(TAG_PROCESS_NAME, &ErrorReport::onStartTagProcessName, &ErrorReport::onEndTagProcessName);
    addTag(TAG_PRODUCT, &ErrorReport::onStartTagProduct, &ErrorReport::onEndTagProduct);
    addTag(TAG_SHUTDOWN_INFO, &ErrorReport::onStartTagShutdownInfo, &ErrorReport::onEndTagShutdownInfo);
    addTag(TAG_UNIT_ID, &ErrorReport::onStartTagUnitId, &ErrorReport::onEndTagUnitId);
}

bool ErrorReport::load(const QString& aFilePath)
{
    mPath = aFilePath;
    mFields = Fields();
    const bool loaded = XmlLoader::load(aFilePath);
    if (!loaded)
        mFields = Fields();
    return loaded;
}

void ErrorReport::addTag(const QString& aTag, OnStartTag aOnStart, OnEndTag aOnEnd)
{
    XmlLoader::addTag(
        aTag, [this, aOnStart](const QXmlStreamReader& aReader) { (this->*aOnStart)(aReader); },
        [this, aOnEnd](const QString& aText) { (this->*aOnEnd)(aText); });
}

void ErrorReport::onStartTagBacktrace(const QXmlStreamReader& aReader)
{
    storeText(aReader, mFields.backtrace);
}

void ErrorReport::onStartTagLogFile(const QXmlStreamReader& aReader) { storeText(aReader, mFields.logFile); }

void ErrorReport::onStartTagParserVersion(const QXmlStreamReader& aReader)
{
    storeText(aReader, mFields.parserVersion);
}

void ErrorReport::onStartTagProcessName(const QXmlStreamReader& aReader)
{
    storeText(aReader, mFields.processName);
}

void ErrorReport::onStartTagProduct(const QXmlStreamReader& aReader) { storeText(aReader, mFields.product); }

void ErrorReport::onStartTagShutdownInfo(const QXmlStreamReader& aReader)
{
    storeText(aReader, mFields.shutdownInfo);
}

void ErrorReport::onStartTagUnitId(const QXmlStreamReader& aReader) { storeText(aReader, mFields.unitId); }

} // namespace Hmi::Shared
