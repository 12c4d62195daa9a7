#include <hmi/core/resources/XmlLoader.h>

#include <QStringList>
#include <QXmlStreamReader>
#include <algorithm>
#include <utility>

#include <hmi/core/input/BoundedFile.h>

namespace Hmi::Core {

namespace {

/** A comment, an instruction, character data or a tag, from its "<" to past its end. */
struct Markup
{
    int begin = 0;
    int end = 0;
    bool isTag = false; ///< or a document type
};

/** What makes the file be refused before it is parsed. */
struct Refusal
{
    int offset = 0;
    QString reason;
};

} // namespace

static Markup readTag(const QByteArray& aXml, int aBegin)
{
    char quote = '\0';
    int at = aBegin;
    for (; at < aXml.size(); ++at) {
        const char character = aXml.at(at);
        if (quote != '\0')
            quote = character == quote ? '\0' : quote;
        else if (character == '"' || character == '\'')
            quote = character;
        else if (character == '>')
            break;
    }
    return {aBegin, std::min(at + 1, aXml.size()), true};
}

static Markup readMarkup(const QByteArray& aXml, int aBegin)
{
    static constexpr std::pair<const char*, const char*> Opaque[] = {
        {"<!--", "-->"}, {"<![CDATA[", "]]>"}, {"<?", "?>"}};
    for (const auto& [start, stop] : Opaque) {
        const int length = int(qstrlen(start));
        if (qstrncmp(aXml.constData() + aBegin, start, uint(length)) != 0)
            continue;
        const int end = aXml.indexOf(stop, aBegin + length);
        return {aBegin, end < 0 ? aXml.size() : end + int(qstrlen(stop)), false};
    }
    return readTag(aXml, aBegin);
}

static QString findFault(const QByteArray& aXml, const Markup& aMarkup)
{
    if (!aMarkup.isTag)
        return QString();
    const int length = aMarkup.end - aMarkup.begin;
    if (length > XmlLoader::MaximumTagLength)
        return QStringLiteral("a tag has more than %1 bytes.").arg(XmlLoader::MaximumTagLength);
    const QByteArray tag = QByteArray::fromRawData(aXml.constData() + aMarkup.begin, length);
    if (tag.startsWith("<!") && tag.contains('['))
        return QStringLiteral("the document type has declarations.");
    return QString();
}

// Qt's reader takes time with the square of a tag's attributes and expands what a document type declares,
// both before it tells of the tag. So that is looked for first; here and there a well-formed file has the
// same tags, as in the encodings that are read no other character has a byte of the ones that are looked for.
static Refusal findRefusal(const QByteArray& aXml)
{
    const int zero = aXml.indexOf('\0');
    if (zero >= 0)
        return {zero, QStringLiteral("it is no text.")};
    Markup markup;
    while ((markup.begin = aXml.indexOf('<', markup.end)) >= 0) {
        markup = readMarkup(aXml, markup.begin);
        const QString fault = findFault(aXml, markup);
        if (!fault.isEmpty())
            return {markup.begin, fault};
    }
    return {};
}

static bool isReadable(const QStringRef& aEncoding)
{
    return aEncoding.isEmpty() || aEncoding.startsWith(QLatin1String("ISO-8859-"), Qt::CaseInsensitive) ||
           aEncoding.compare(QLatin1String("UTF-8"), Qt::CaseInsensitive) == 0 ||
           aEncoding.compare(QLatin1String("US-ASCII"), Qt::CaseInsensitive) == 0;
}

static QString findFault(const QXmlStreamReader& aReader, int aDepth)
{
    if (aReader.isStartDocument() && !isReadable(aReader.documentEncoding()))
        return QStringLiteral("the encoding '%1' is not read.").arg(aReader.documentEncoding());
    if (aDepth > XmlLoader::MaximumDepth)
        return QStringLiteral("more than %1 elements are in each other.").arg(XmlLoader::MaximumDepth);
    if (aReader.attributes().size() > XmlLoader::MaximumAttributes)
        return QStringLiteral("a tag has more than %1 attributes.").arg(XmlLoader::MaximumAttributes);
    return QString();
}

void XmlLoader::addTag(const QString& aTag, StartTagCallback aOnStart, EndTagCallback aOnEnd)
{
    mTags.insert(aTag, {std::move(aOnStart), std::move(aOnEnd)});
}

bool XmlLoader::load(const QString& aFilePath)
{
    QString problem;
    const QByteArray xml = readBounded(aFilePath, MaximumFileSize, problem);
    if (!problem.isEmpty()) {
        qWarning("The XML file '%s' cannot be read: %s.", qUtf8Printable(aFilePath), qUtf8Printable(problem));
        return false;
    }
    Refusal refusal = findRefusal(xml);
    qint64 line = xml.left(refusal.offset).count('\n') + 1;
    if (refusal.reason.isEmpty()) {
        QXmlStreamReader reader(xml);
        // Each prefix would be looked for among all the open elements' declarations.
        reader.setNamespaceProcessing(false);
        readElements(reader);
        refusal.reason = reader.errorString();
        line = reader.lineNumber();
    }
    if (refusal.reason.isEmpty())
        return true;
    qWarning("The XML file '%s' is faulty in line %lld: %s", qUtf8Printable(aFilePath), line,
             qUtf8Printable(refusal.reason));
    return false;
}

void XmlLoader::readElements(QXmlStreamReader& aReader) const
{
    QStringList texts; // of the open elements
    while (!aReader.atEnd()) {
        aReader.readNext();
        if (aReader.isStartElement())
            texts.append(QString());
        const QString fault = findFault(aReader, texts.size());
        if (!fault.isEmpty())
            aReader.raiseError(fault);
        else if (aReader.isCharacters() && !texts.isEmpty())
            texts.last() += aReader.text();
        else if (aReader.isStartElement())
            startElement(aReader);
        else if (aReader.isEndElement())
            endElement(aReader.name().toString(), texts.takeLast());
    }
}

void XmlLoader::startElement(const QXmlStreamReader& aReader) const
{
    const auto tag = mTags.constFind(aReader.name().toString());
    if (tag != mTags.constEnd() && tag->onStart)
        tag->onStart(aReader);
}

void XmlLoader::endElement(const QString& aTag, const QString& aText) const
{
    const auto tag = mTags.constFind(aTag);
    if (tag != mTags.constEnd() && tag->onEnd)
        tag->onEnd(aText);
}

} // namespace Hmi::Core
