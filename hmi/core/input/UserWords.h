#pragma once

#include <QString>
#include <QStringList>

namespace Hmi::Core {

/**
 * The words that the user typed, a bounded list with the most recently used one first. Words that differ only
 * in case are the same word, kept as it was written last.
 */
class UserWords
{
public:
    /** A file larger than this many bytes is not read. */
    static constexpr qint64 MaximumFileSize = 4LL * 1024 * 1024;

    /** A limit below 1 keeps no words. */
    explicit UserWords(int aLimit);

    /**
     * Puts the word in front, without blanks around it, and drops the one that was not used for longest when
     * there are too many. False when nothing changed: the word is in front already, empty, longer than a word
     * of a list may be, or has control characters.
     */
    bool add(const QString& aWord);
    /** False when there is no such word. */
    bool remove(const QString& aWord);
    void clear() { mWords.clear(); }

    const QStringList& getWords() const { return mWords; }
    /** At most aMaximum words that begin with the prefix regardless of case, in order of use. */
    QStringList startingWith(const QString& aPrefix, int aMaximum) const;

    /**
     * Takes the words of a file that save() wrote. Lines that are no words are skipped; then, and when the
     * file cannot be read, aProblem says what is wrong. A file that does not exist is no problem.
     */
    void load(const QString& aFilePath, QString& aProblem);

    /**
     * Writes the words whole or not at all, and the file's folder when it is missing. On failure aProblem
     * says what is wrong and the old file is unchanged.
     */
    static void save(const QString& aFilePath, const QStringList& aWords, QString& aProblem);

private:
    int mLimit;
    QStringList mWords;
};

} // namespace Hmi::Core
