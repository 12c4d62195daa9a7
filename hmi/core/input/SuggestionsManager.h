#pragma once

#include <QString>
#include <QStringList>
#include <QTimer>

#include <hmi/core/foundation/SingletonCppQml.h>
#include <hmi/core/input/LanguageFiles.h>
#include <hmi/core/input/UserWords.h>
#include <hmi/core/input/WordList.h>

namespace Hmi::Core {

/**
 * Suggests words while the user types: first the user's own words, the most recently used one first, then
 * those of the language's word list, a UTF-8 file "<language>.txt" with a word on each line in the configured
 * suggestions path.
 *
 * The user's words are the same for every language, are bounded in number (the configuration's limit; the
 * least recently used word is dropped) and are kept in a file, written whole or not at all once the changes
 * pause for SaveDelay and when the manager goes away.
 *
 * Main thread only. The size of a word list is bounded so that loading one takes a few frames at most.
 */
class Q_DECL_EXPORT SuggestionsManager : public SingletonCppQml<SuggestionsManager>
{
    Q_OBJECT
    Q_PROPERTY(QStringList availableLanguages READ getAvailableLanguages CONSTANT)
    Q_PROPERTY(QString language READ getLanguage NOTIFY languageChanged)
    Q_PROPERTY(QStringList userWords READ getUserWords NOTIFY userWordsChanged)
    friend class SingletonCppQml<SuggestionsManager>;

public:
    /** Milliseconds. */
    static constexpr int SaveDelay = 500;

    /**
     * The user's words are in "suggestions_user_words.txt" in aUserFolder, which is made when it is missing.
     * The application's instance uses the folder named as the application in the local-state directory.
     */
    SuggestionsManager(const QString& aSuggestionsPath, const QString& aUserFolder, int aUserWordsLimit);
    ~SuggestionsManager() override;

    /** The language codes for which there was a word list when the manager was created, sorted. */
    QStringList getAvailableLanguages() const { return mFiles.getLanguages(); }

    /** The language whose word list is in use; empty until one was loaded. */
    QString getLanguage() const { return mLanguage; }

    /** Most recently used first. */
    QStringList getUserWords() const { return mUserWords.getWords(); }

    /**
     * Uses the word list of a language, else of the language without or with another country. False, after
     * one warning and with the old list in place, when there is none, or it is too large or no text.
     */
    Q_INVOKABLE bool loadLanguage(const QString& aLanguage);

    /**
     * At most aMaximum words that begin with the prefix regardless of case. An empty prefix suggests the
     * user's words only. No word of the list repeats one of the user's.
     */
    Q_INVOKABLE QStringList suggestions(const QString& aPrefix, int aMaximum) const;

    /**
     * Remembers a word that the user typed, or marks a known one as just used. Silently ignored when it is
     * empty, longer than 100 characters or has control characters.
     */
    Q_INVOKABLE void addUserWord(const QString& aWord);
    Q_INVOKABLE void removeUserWord(const QString& aWord);
    Q_INVOKABLE void clearUserWords();

signals:
    void languageChanged();
    void userWordsChanged();

private:
    SuggestionsManager(QQmlEngine* aEngine, QJSEngine* aScriptEngine);

    void takeUserWordsChange();
    void saveUserWords();

    const LanguageFiles mFiles;
    const QString mUserWordsFile;
    QString mLanguage;
    WordList mWords;
    UserWords mUserWords;
    QTimer mSaveTimer;
    bool mSaveFailed = false; ///< a failure is reported once, until saving succeeds again
};

} // namespace Hmi::Core
