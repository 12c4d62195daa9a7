#include <hmi/core/resources/ResourceTable.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QXmlStreamReader>

namespace Hmi::Core {

static QString unknownElement(const QXmlStreamReader& aElement)
{
    return QStringLiteral("unknown element <%1>.").arg(aElement.name());
}

bool ResourceTable::read(const QString& aFilePath)
{
    mFilePath = aFilePath;
    mEntries.clear();
    QFile file(aFilePath);
    if (!file.open(QIODevice::ReadOnly)) {
        qWarning("The resource table '%s' cannot be opened: %s.", qUtf8Printable(aFilePath),
                 qUtf8Printable(file.errorString()));
        return false;
    }
    QXmlStreamReader reader(&file);
    readEntries(reader);
    if (!reader.hasError())
        return true;
    qWarning("The resource table '%s' is faulty in line %lld: %s", qUtf8Printable(aFilePath),
             reader.lineNumber(), qUtf8Printable(reader.errorString()));
    mEntries.clear();
    return false;
}

void ResourceTable::readEntries(QXmlStreamReader& aReader)
{
    if (aReader.readNextStartElement() && aReader.name() != QLatin1String("resources"))
        aReader.raiseError(QStringLiteral("expected the element <resources>."));
    while (aReader.readNextStartElement()) {
        const QString fault = addEntry(aReader);
        if (!fault.isEmpty())
            aReader.raiseError(fault);
        else if (aReader.readNextStartElement())
            aReader.raiseError(unknownElement(aReader));
    }
    // What follows the table must be well-formed, too.
    while (!aReader.atEnd())
        aReader.readNext();
}

QString ResourceTable::addEntry(const QXmlStreamReader& aElement)
{
    static const QHash<QString, ResourceKind> kinds{{QStringLiteral("defaults"), ResourceKind::Defaults}};
    const auto kind = kinds.constFind(aElement.name().toString());
    if (kind == kinds.constEnd())
        return unknownElement(aElement);
    const QString id = aElement.attributes().value(QLatin1String("id")).toString();
    const QString name = aElement.attributes().value(QLatin1String("file")).toString();
    if (id.isEmpty() || name.isEmpty())
        return QStringLiteral("<%1> needs the attributes id and file.").arg(aElement.name());
    if (mEntries.contains(id))
        return QStringLiteral("the id '%1' is used twice.").arg(id);
    const QString file = QDir::cleanPath(QFileInfo(mFilePath).dir().filePath(name));
    if (!QFileInfo(file).isFile())
        return QStringLiteral("the file '%1' of '%2' does not exist.").arg(file, id);
    mEntries.insert(id, {*kind, file});
    return QString();
}

QString ResourceTable::getFile(ResourceKind aKind, const QString& aId) const
{
    const auto entry = mEntries.constFind(aId);
    return entry != mEntries.constEnd() && entry->kind == aKind ? entry->file : QString();
}

} // namespace Hmi::Core
