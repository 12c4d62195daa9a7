#pragma once

#include <QString>
#include <QStringList>
#include <QStringView>
#include <vector>

namespace Hmi::Core {

/**
 * The words of a language, searched by their beginning without regard to case. The words lie in one text and
 * are found by binary search, so that a large list costs little memory and a search no noticeable time.
 */
class WordList
{
public:
    /** Files larger than this many bytes are refused; it is room for some 100,000 words. */
    static constexpr qint64 MaximumFileSize = 1024LL * 1024;
    /** Longer lines are skipped. */
    static constexpr int MaximumWordLength = 100;

    /**
     * Reads UTF-8 text with a word on each line, in any order; blank lines and repeated words are skipped. On
     * failure false and an empty list, with aProblem saying what is wrong.
     */
    bool load(const QString& aFilePath, QString& aProblem);

    /** At most aMaximum words that begin with the prefix, in alphabetical order regardless of case. */
    QStringList startingWith(const QString& aPrefix, int aMaximum) const;

private:
    struct Word
    {
        int position;
        int length;
    };

    QStringView view(Word aWord) const { return QStringView(mText).mid(aWord.position, aWord.length); }
    void splitText();
    void sortWords();

    QString mText;
    std::vector<Word> mWords;
};

} // namespace Hmi::Core
