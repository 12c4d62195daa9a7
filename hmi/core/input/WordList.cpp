#include <hmi/core/input/WordList.h>

#include <QTextCodec>
#include <algorithm>

#include <hmi/core/input/BoundedFile.h>

namespace Hmi::Core {

bool WordList::load(const QString& aFilePath, QString& aProblem)
{
    mWords.clear();
    mText.clear();
    const QByteArray bytes = readBounded(aFilePath, MaximumFileSize, aProblem);
    if (!aProblem.isEmpty())
        return false;
    QTextCodec::ConverterState state;
    const QString text =
        QTextCodec::codecForName("UTF-8")->toUnicode(bytes.constData(), bytes.size(), &state);
    if (state.invalidChars > 0 || state.remainingChars > 0 || bytes.contains('\0')) {
        aProblem = QStringLiteral("it is no UTF-8 text");
        return false;
    }
    mText = text;
    splitText();
    sortWords();
    return true;
}

void WordList::splitText()
{
    for (int start = 0; start < mText.size();) {
        const int newline = mText.indexOf(QLatin1Char('\n'), start);
        const int end = newline < 0 ? mText.size() : newline;
        const QStringView word = QStringView(mText).mid(start, end - start).trimmed();
        if (!word.isEmpty() && word.size() <= MaximumWordLength)
            mWords.push_back({int(word.data() - mText.constData()), int(word.size())});
        start = end + 1;
    }
}

void WordList::sortWords()
{
    const auto precedes = [this](Word aLeft, Word aRight) {
        const int order = view(aLeft).compare(view(aRight), Qt::CaseInsensitive);
        return order != 0 ? order < 0 : view(aLeft) < view(aRight);
    };
    const auto equals = [this](Word aLeft, Word aRight) { return view(aLeft) == view(aRight); };
    std::sort(mWords.begin(), mWords.end(), precedes);
    mWords.erase(std::unique(mWords.begin(), mWords.end(), equals), mWords.end());
    mWords.shrink_to_fit();
}

QStringList WordList::startingWith(const QString& aPrefix, int aMaximum) const
{
    const auto precedes = [this](Word aWord, const QString& aText) {
        return view(aWord).compare(aText, Qt::CaseInsensitive) < 0;
    };
    QStringList words;
    auto word = std::lower_bound(mWords.begin(), mWords.end(), aPrefix, precedes);
    for (; word != mWords.end() && words.size() < aMaximum; ++word) {
        if (!view(*word).startsWith(aPrefix, Qt::CaseInsensitive))
            break;
        words.append(view(*word).toString());
    }
    return words;
}

} // namespace Hmi::Core
