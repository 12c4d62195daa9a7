#pragma once

#include <QPointer>
#include <QQmlEngine>
#include <QString>
#include <QStringList>
#include <QVector>

#include <hmi/core/foundation/SingletonCppQml.h>
#include <hmi/core/language/Translations.h>

namespace Hmi::Core {

/**
 * The language of the HMI. QML reaches it as the singleton LanguageManager of Hmi.Core. Created after the
 * configuration was loaded: its constructor lists the languages folder and installs the translations of the
 * system's language. When the language changes, every engine known here evaluates its translated bindings
 * again. Main thread only.
 *
 * A refused language is reported as a warning, and the language before stays in effect.
 */
class Q_DECL_EXPORT LanguageManager : public SingletonCppQml<LanguageManager>
{
    Q_OBJECT
    /** The chosen code, such as "en_US"; empty: the system's language. */
    Q_PROPERTY(QString currentLanguage READ getCurrentLanguage WRITE setCurrentLanguage NOTIFY
                   currentLanguageChanged)
    /** The chosen code or, when none is chosen, the system's; never empty. */
    Q_PROPERTY(QString languageCode READ getLanguageCode NOTIFY currentLanguageChanged)
    /** The codes of the languages that have translations, sorted. */
    Q_PROPERTY(QStringList availableLanguages READ getAvailableLanguages CONSTANT)
    friend class SingletonCppQml<LanguageManager>;

public:
    /** The provider for QML; the engine is added. */
    static QObject* registerInstance(QQmlEngine* aEngine, QJSEngine* aScriptEngine);

    QString getCurrentLanguage() const { return mCurrentLanguage; }

    /**
     * False, with nothing changed, for a text that is no language code and for a language whose translation
     * is damaged. A language without translations is taken and shows the source texts.
     */
    Q_INVOKABLE bool setCurrentLanguage(const QString& aLanguage);

    /** "en_US" when the system has no language either, as in the locale "C". */
    QString getLanguageCode() const;

    QStringList getAvailableLanguages() const { return mTranslations.getCodes(); }

    /**
     * Lets the engine evaluate its translated bindings again on each change. An engine whose QML names the
     * manager is added already; an engine may be added twice and may be deleted at any time.
     */
    void addEngine(QQmlEngine* aEngine);

signals:
    /** The new language's translations are in effect; the engines follow after this signal. */
    void currentLanguageChanged();

private:
    LanguageManager(QQmlEngine* aEngine, QJSEngine* aScriptEngine);

    Translations mTranslations;
    QString mCurrentLanguage;
    QVector<QPointer<QQmlEngine>> mEngines;
};

} // namespace Hmi::Core
