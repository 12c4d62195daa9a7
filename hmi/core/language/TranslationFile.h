#pragma once

#include <QByteArray>
#include <QString>
#include <QTranslator>
#include <memory>

namespace Hmi::Core {

/**
 * One compiled translation (.qm), held in memory. install() puts it before the translations already
 * installed; its destructor withdraws it. Qt follows the offsets of a translation unchecked on every lookup,
 * so the whole file is checked first. Main thread only.
 */
class Q_DECL_EXPORT TranslationFile
{
public:
    /** Of more bytes nothing is read: memory for them may not be there. */
    static constexpr qint64 MaximumFileSize = 64 << 20;

    /**
     * Reads and checks the file. Null, with a warning that names it, when it cannot be read, is larger than
     * that, is damaged or holds no texts of its own (a file that only names other translations).
     */
    static std::unique_ptr<TranslationFile> load(const QString& aFilePath);

    void install();

private:
    TranslationFile() = default;

    QByteArray mContent;
    QTranslator mTranslator;
};

} // namespace Hmi::Core
