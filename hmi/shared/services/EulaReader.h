#pragma once

#include <QObject>
#include <QString>

namespace Hmi::Shared {

/**
 * Reads the licence agreement or the copyrights document in the language of the HMI. QML creates it as
 * EulaReader. Main thread only; loading is done when the call returns, 20 MB take some 50 ms on a desk.
 *
 * The documents are UTF-8 files in one folder, "HmiShared/EulaPath" of the configuration: "eula-en_US.htm",
 * "copyrights-en_US.htm" and so on, or "eula.htm" for a document of no language. Bytes that are no UTF-8 show
 * as replacement characters.
 */
class Q_DECL_EXPORT EulaReader : public QObject
{
    Q_OBJECT
    Q_PROPERTY(FileType fileType READ getFileType WRITE setFileType NOTIFY fileTypeChanged)
    /** The HTML of the document loaded last; empty at first. */
    Q_PROPERTY(QString text READ getText NOTIFY textChanged)

public:
    enum FileType {
        FileTypeEula,      ///< the licence agreement, "eula"
        FileTypeCopyrights ///< the copyrights document, "copyrights"
    };
    Q_ENUM(FileType)

    /** Larger documents are not read. */
    static constexpr qint64 MaximumFileSize = 32LL * 1024 * 1024;

    /** Over the configured folder. */
    explicit EulaReader(QObject* aParent = nullptr);
    explicit EulaReader(const QString& aFolder, QObject* aParent = nullptr);

    FileType getFileType() const { return mFileType; }
    /** For the next loadFile(); the text stays. */
    void setFileType(FileType aFileType);

    Q_INVOKABLE QString getText() const { return mText; }

    /**
     * Reads the document, in the HMI's language with aUseLanguageSuffix, else the one of no language. When it
     * does not exist, aAllowFallback lets one of the same language for another country take its place, and
     * failing that the one of "en_US". False, with the text left as it is and a warning that names the file,
     * when there is nothing that can be read.
     */
    Q_INVOKABLE bool loadFile(bool aUseLanguageSuffix, bool aAllowFallback);

signals:
    void fileTypeChanged();
    /** A document was loaded, also one of the same text. */
    void textChanged();

private:
    QString getFileStem() const;
    QString findFallback(const QString& aLanguage) const;
    bool readFile(const QString& aFilePath);

    const QString mFolder;
    FileType mFileType = FileTypeEula;
    QString mText;
};

} // namespace Hmi::Shared
