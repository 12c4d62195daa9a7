#pragma once

#include <QHash>
#include <QString>
#include <functional>

class QXmlStreamReader;

namespace Hmi::Core {

/**
 * Loads XML files by calling back for the tags that were added; all other elements are passed over. An object
 * may load one file after the other. Any thread, but one at a time; callbacks are called in the loading one.
 *
 *     XmlLoader loader;
 *     loader.addTag(QStringLiteral("Product"), {}, [&](const QString& aText) { product = aText; });
 *     loader.load(path);
 *
 * Files may be hostile: what a file can cost is bounded by the limits below, which no file that this
 * library's users mean comes near. A document type is passed over, but may not declare anything, so that no
 * entity grows; nothing is ever fetched. The encoding is UTF-8 unless the file declares ASCII or ISO 8859.
 */
class Q_DECL_EXPORT XmlLoader
{
public:
    static constexpr int MaximumFileSize = 2 * 1024 * 1024; ///< bytes
    static constexpr int MaximumTagLength = 16 * 1024;      ///< bytes
    static constexpr int MaximumAttributes = 64;            ///< of one tag
    static constexpr int MaximumDepth = 64;                 ///< of elements in each other

    /** The reader stands on the start tag: its attributes() and text() are those of this moment. */
    using StartTagCallback = std::function<void(const QXmlStreamReader& aReader)>;
    /** The text between the tags as it is written, without that of elements within. */
    using EndTagCallback = std::function<void(const QString& aText)>;

    /** Tags are told apart by case and known without namespace; either callback may be empty. */
    void addTag(const QString& aTag, StartTagCallback aOnStart, EndTagCallback aOnEnd);

    /**
     * False, after one warning that names file, line and reason, when the file cannot be read, is beyond a
     * limit or is malformed. The tags before the fault may have been called back by then. Not to be called
     * from a callback.
     */
    bool load(const QString& aFilePath);

private:
    struct Tag
    {
        StartTagCallback onStart;
        EndTagCallback onEnd;
    };

    void readElements(QXmlStreamReader& aReader) const;
    void startElement(const QXmlStreamReader& aReader) const;
    void endElement(const QString& aTag, const QString& aText) const;

    QHash<QString, Tag> mTags;
};

} // namespace Hmi::Core
