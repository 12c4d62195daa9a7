#include <hmi/core/input/SuggestionsManager.h>

#include <QCoreApplication>

#include <hmi/core/foundation/HmiCoreConfigs.h>
#include <hmi/core/input/WordList.h>

namespace Hmi::Core {

SuggestionsManager::SuggestionsManager(const QString& aSuggestionsPath, const QString& aUserFolder,
                                       int aUserWordsLimit) :
    mFiles(aSuggestionsPath, QStringLiteral("txt")),
    mUserWordsFile(aUserFolder + QStringLiteral("/suggestions_user_words.txt")),
    mWords(std::make_shared<WordList>()),
    mUserWords(aUserWordsLimit)
{
    mWorker.setMaxThreadCount(1);
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
    mWorker.waitForDone();
}

void SuggestionsManager::loadLanguage(const QString& aLanguage)
{
    const int request = ++mLastRequest;
    const QString language = mFiles.closestTo(aLanguage);
    if (language.isEmpty())
        return rejectLanguage(aLanguage, QStringLiteral("there is no list for this language"));
    if (language == mLanguage)
        return;
    mWorker.start([this, request, language] {
        auto words = std::make_shared<WordList>();
        QString problem;
        words->load(mFiles.filePath(language), problem);
        const auto use = [this, request, language, words, problem] {
            if (request != mLastRequest)
                return;
            if (!problem.isEmpty())
                return rejectLanguage(language, problem);
            mWords = words;
            mLanguage = language;
            emit languageChanged();
        };
        QMetaObject::invokeMethod(this, use, Qt::QueuedConnection);
    });
}

void SuggestionsManager::rejectLanguage(const QString& aLanguage, const QString& aProblem)
{
    qWarning("The word list %s is not used, \"%s\" stays: %s.", qPrintable(mFiles.filePath(aLanguage)),
             qPrintable(mLanguage), qPrintable(aProblem));
    emit languageFailed(aLanguage);
}

QStringList SuggestionsManager::suggestions(const QString& aPrefix, int aMaximum) const
{
    QStringList found = mUserWords.startingWith(aPrefix, aMaximum);
    if (aPrefix.isEmpty())
        return found;
    const QStringList own = found;
    for (const QString& word : mWords->startingWith(aPrefix, aMaximum)) {
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
    // At once, but a single time for all changes of one turn of the event loop.
    mSaveTimer.start(0);
    emit userWordsChanged();
}

void SuggestionsManager::saveUserWords()
{
    mWorker.start([this, words = mUserWords.getWords()] {
        QString problem;
        UserWords::save(mUserWordsFile, words, problem);
        const bool failed = !problem.isEmpty();
        if (failed && !mSaveFailed)
            qWarning(
                "The user's words could not be saved to %s: %s. They are kept until the application ends.",
                qPrintable(mUserWordsFile), qPrintable(problem));
        mSaveFailed = failed;
    });
}

} // namespace Hmi::Core
