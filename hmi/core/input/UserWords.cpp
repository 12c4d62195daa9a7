#include <hmi/core/input/UserWords.h>

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>
#include <QSet>
#include <algorithm>

#include <hmi/core/input/BoundedFile.h>
#include <hmi/core/input/WordList.h>

namespace Hmi::Core {

/** Whether the text can stand on a line of the file and be read back as the same text. */
static bool isWord(const QString& aText)
{
    const auto isForbidden = [](QChar aChar) {
        return aChar.category() == QChar::Other_Control || aChar == QChar::ReplacementCharacter;
    };
    return !aText.isEmpty() && aText.size() <= WordList::MaximumWordLength &&
           std::none_of(aText.begin(), aText.end(), isForbidden);
}

UserWords::UserWords(int aLimit) : mLimit(std::max(aLimit, 0)) {}

bool UserWords::add(const QString& aWord)
{
    const QString word = aWord.trimmed();
    if (mLimit == 0 || !isWord(word) || (!mWords.isEmpty() && mWords.constFirst() == word))
        return false;
    remove(word);
    mWords.prepend(word);
    if (mWords.size() > mLimit)
        mWords.removeLast();
    return true;
}

bool UserWords::remove(const QString& aWord)
{
    const auto isWanted = [word = aWord.trimmed()](const QString& aCandidate) {
        return aCandidate.compare(word, Qt::CaseInsensitive) == 0;
    };
    const auto found = std::find_if(mWords.begin(), mWords.end(), isWanted);
    if (found == mWords.end())
        return false;
    mWords.erase(found);
    return true;
}

QStringList UserWords::startingWith(const QString& aPrefix, int aMaximum) const
{
    QStringList words;
    for (const QString& word : mWords) {
        if (words.size() >= aMaximum)
            break;
        if (word.startsWith(aPrefix, Qt::CaseInsensitive))
            words.append(word);
    }
    return words;
}

void UserWords::load(const QString& aFilePath, QString& aProblem)
{
    mWords.clear();
    if (!QFileInfo::exists(aFilePath))
        return;
    const QByteArray bytes = readBounded(aFilePath, MaximumFileSize, aProblem);
    // With the size given: a damaged file may hold null bytes.
    const QStringList lines = QString::fromUtf8(bytes.constData(), bytes.size()).split(QLatin1Char('\n'));
    QSet<QString> seen;
    for (const QString& line : lines) {
        const QString word = line.trimmed();
        if (!word.isEmpty() && !isWord(word))
            aProblem = QStringLiteral("it has lines that are no words; they are skipped");
        else if (!word.isEmpty() && mWords.size() < mLimit && !seen.contains(word.toCaseFolded())) {
            seen.insert(word.toCaseFolded());
            mWords.append(word);
        }
    }
}

void UserWords::save(const QString& aFilePath, const QStringList& aWords, QString& aProblem)
{
    QDir().mkpath(QFileInfo(aFilePath).path());
    QSaveFile file(aFilePath);
    const QByteArray content = aWords.join(QLatin1Char('\n')).toUtf8();
    // Without flush() commit() would not see that the rest of a short file found no room.
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size() || !file.flush() ||
        !file.commit())
        aProblem = file.errorString();
}

} // namespace Hmi::Core
