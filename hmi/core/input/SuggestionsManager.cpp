#include <hmi/core/input/SuggestionsManager.h>

#include <QCoreApplication>
#include <utility>

#include <hmi/core/foundation/HmiCoreConfigs.h>

namespace Hmi::Core {

SuggestionsManager::SuggestionsManager(const QString& aSuggestionsPath, const QString& aUserFolder,
                                       int aUserWordsLimit) :
    mFiles(aSuggestionsPath, QStringLiteral("txt")),
    mUserWordsFile(aUserFolder + QStringLiteral("/suggestions_user_words.txt")),
    mUserWords(aUserWordsLimit)
{
    mSaveTimer.setSingleShot(true);
    connect(&mSaveTimer, &QTimer::timeout, this, &SuggestionsManager::saveUserWords);

    QString problem;
    mUserWords.load(mUserWordsFile, problem);
    if (!problem.isEmpty())
        qWarning("The user's words in %s could not all be read: %s.", qPrintable(mUserWordsFile),
                 qPrintable(problem));
}

SuggestionsManager::SuggestionsManager(QQmlEngine*, QJSEngine*) :
    SuggestionsManager(HmiCoreConfigs::instance()->getSuggestionsPath(),
                       HmiCoreConfigs::instance()->getGnuLocalstatedir() + QLatin1Char('/') +
                           QCoreApplication::applicationName(),
                       HmiCoreConfigs::instance()->getSuggestionsUserWordsLimit())
{}

SuggestionsManager::~SuggestionsManager()
{
    if (mSaveTimer.isActive())
        saveUserWords();
}

bool SuggestionsManager::loadLanguage(const QString& aLanguage)
{
    const QString language = mFiles.closestTo(aLanguage);
    if (!language.isEmpty() && language == mLanguage)
        return true;
    WordList words;
    QString problem = language.isEmpty() ? QStringLiteral("there is no list for this language") : QString();
    if (!problem.isEmpty() || !words.load(mFiles.filePath(language), problem)) {
        qWarning("The word list %s is not used, \"%s\" stays: %s.", qPrintable(mFiles.filePath(aLanguage)),
                 qPrintable(mLanguage), qPrintable(problem));
        return false;
    }
    mWords = std::move(words);
    mLanguage = language;
    emit languageChanged();
    return true;
}

QStringList SuggestionsManager::suggestions(const QString& aPrefix, int aMaximum) const
{
    QStringList found = mUserWords.startingWith(aPrefix, aMaximum);
    if (aPrefix.isEmpty())
        return found;
    const QStringList own = found;
    const QStringList others = mWords.startingWith(aPrefix, aMaximum);
    for (const QString& word : others) {
        if (found.size() >= aMaximum)
            break;
        if (!own.contains(word, Qt::CaseInsensitive))
            found.append(word);
    }
    return found;
}

void SuggestionsManager::addUserWord(const QString& aWord)
{
    if (mUserWords.add(aWord))
        takeUserWordsChange();
}

void SuggestionsManager::removeUserWord(const QString& aWord)
{
    if (mUserWords.remove(aWord))
        takeUserWordsChange();
}

void SuggestionsManager::clearUserWords()
{
    if (mUserWords.getWords().isEmpty())
        return;
    mUserWords.clear();
    takeUserWordsChange();
}

void SuggestionsManager::takeUserWordsChange()
{
    mSaveTimer.start(SaveDelay);
    emit userWordsChanged();
}

void SuggestionsManager::saveUserWords()
{
    QString problem;
    UserWords::save(mUserWordsFile, mUserWords.getWords(), problem);
    const bool failed = !problem.isEmpty();
    if (failed && !mSaveFailed)
        qWarning("The user's words could not be saved to %s: %s. They are kept until the application ends.",
                 qPrintable(mUserWordsFile), qPrintable(problem));
    mSaveFailed = failed;
}

} // namespace Hmi::Core
