#include "Surroundings.h"

#include <QXmlStreamReader>
#include <QXmlStreamWriter>
#include <array>

#include <hmi/shared/services/ErrorReport.h>

using Hmi::Shared::ErrorReport;
using HmiFuzz::Input;
using HmiFuzz::require;

namespace {

using Fields = std::array<QString, 7>;

const Fields& tags()
{
    static const Fields tags = {ErrorReport::TAG_BACKTRACE,      ErrorReport::TAG_LOGFILE,
                                ErrorReport::TAG_PARSER_VERSION, ErrorReport::TAG_PROCESS_NAME,
                                ErrorReport::TAG_PRODUCT,        ErrorReport::TAG_SHUTDOWN_INFO,
                                ErrorReport::TAG_UNIT_ID};
    return tags;
}

Fields fieldsOf(const ErrorReport& aReport)
{
    return {aReport.getBacktrace(),   aReport.getLogFile(), aReport.getParserVersion(),
            aReport.getProcessName(), aReport.getProduct(), aReport.getShutdownInfo(),
            aReport.getUnitId()};
}

/** Well-formed, in UTF-8 and without a document type: what no limit keeps from being read at this size. */
bool isPlainXml(const QByteArray& aXml)
{
    QXmlStreamReader reader(aXml);
    reader.setNamespaceProcessing(false);
    bool isPlain = !aXml.contains('\0');
    int depth = 0;
    while (!reader.atEnd()) {
        reader.readNext();
        depth += reader.isStartElement() ? 1 : reader.isEndElement() ? -1 : 0;
        const QStringRef encoding = reader.documentEncoding();
        isPlain = isPlain && !reader.isDTD() && depth <= Hmi::Core::XmlLoader::MaximumDepth &&
                  reader.attributes().size() <= Hmi::Core::XmlLoader::MaximumAttributes &&
                  (encoding.isEmpty() || encoding == QLatin1String("UTF-8"));
    }
    return isPlain && !reader.hasError();
}

void checkRaw(const QByteArray& aXml, ErrorReport& aReport)
{
    const HmiFuzz::File file(aXml);
    HmiFuzz::Warnings warnings;
    bool loaded = false;
    {
        const HmiFuzz::Quick quick;
        loaded = aReport.load(file.getPath());
    }
    require(warnings.takeCount() == (loaded ? 0 : 1), "a fault is reported once, and nothing else is");
    require(aReport.getPath() == file.getPath(), "the path is known in any case");
    require(loaded || fieldsOf(aReport) == Fields(), "of a faulty file nothing is taken");
    if (aXml.size() < 4096)
        require(loaded || !isPlainXml(aXml), "what is well-formed is read");
}

/** XML has no control characters, and only one kind of line end. */
QString writable(const QString& aText)
{
    QString text;
    for (const uint character : aText.toUcs4())
        if (character >= 0x20 && character < 0xFFFE && !QChar::isSurrogate(character))
            text += QChar(static_cast<ushort>(character));
    return text;
}

QByteArray written(Input& aInput, Fields& aFields)
{
    QByteArray xml;
    QXmlStreamWriter writer(&xml);
    writer.writeStartDocument();
    writer.writeStartElement(QStringLiteral("Report"));
    const QList<QByteArray> texts =
        QByteArray(aInput.getRest(), static_cast<int>(aInput.getRestSize())).split('\n');
    for (const QByteArray& bytes : texts) {
        const std::size_t index = static_cast<std::size_t>(aInput.choose()) % aFields.size();
        aFields.at(index) = writable(QString::fromUtf8(bytes));
        writer.writeStartElement(tags().at(index));
        writer.writeCharacters(aFields.at(index));
        writer.writeTextElement(QStringLiteral("within"), QString::fromLatin1(bytes.toHex()));
        writer.writeEndElement();
    }
    writer.writeEndDocument();
    return xml;
}

void checkRoundTrip(Input& aInput, ErrorReport& aReport)
{
    Fields fields;
    const HmiFuzz::File file(written(aInput, fields));
    HmiFuzz::Warnings warnings;
    require(aReport.load(file.getPath()) && warnings.takeCount() == 0, "what is well written is read");
    require(fieldsOf(aReport) == fields, "what was written last is read");
}

} // namespace

// An odd first choice makes the rest the texts of a good report, one a line; it is a file as it stands
// otherwise. Both go through one object, in which nothing of the former file may be left.
int LLVMFuzzerTestOneInput(const std::uint8_t* aData, std::size_t aSize)
{
    static ErrorReport report;
    Input input(aData, aSize);
    if ((input.choose() & 1) != 0)
        checkRoundTrip(input, report);
    else
        checkRaw(HmiFuzz::takeStretched(input), report);
    return 0;
}
