#include <hmi/core/language/LanguageManager.h>

#include <QLocale>

#include <hmi/core/foundation/HmiCoreConfigs.h>

namespace Hmi::Core {

static QString systemCode()
{
    const QString name = QLocale::system().name();
    return Translations::isCode(name) ? name : QStringLiteral("en_US");
}

LanguageManager::LanguageManager(QQmlEngine*, QJSEngine*) :
    mTranslations(HmiCoreConfigs::instance()->getLanguagesPath())
{
    mTranslations.install(systemCode());
}

QObject* LanguageManager::registerInstance(QQmlEngine* aEngine, QJSEngine* aScriptEngine)
{
    QObject* manager = SingletonCppQml::registerInstance(aEngine, aScriptEngine);
    static_cast<LanguageManager*>(manager)->addEngine(aEngine);
    return manager;
}

bool LanguageManager::setCurrentLanguage(const QString& aLanguage)
{
    if (mCurrentLanguage == aLanguage)
        return true;
    if (!aLanguage.isEmpty() && !Translations::isCode(aLanguage)) {
        qWarning("'%s' is no language code; codes have the form \"en_US\".", qUtf8Printable(aLanguage));
        return false;
    }
    if (!mTranslations.install(aLanguage.isEmpty() ? systemCode() : aLanguage))
        return false;
    mCurrentLanguage = aLanguage;
    emit currentLanguageChanged();
    const auto engines = mEngines;
    for (const QPointer<QQmlEngine>& engine : engines) {
        if (engine)
            engine->retranslate();
    }
    return true;
}

QString LanguageManager::getLanguageCode() const
{
    return mCurrentLanguage.isEmpty() ? systemCode() : mCurrentLanguage;
}

void LanguageManager::addEngine(QQmlEngine* aEngine)
{
    mEngines.removeAll(nullptr);
    if (aEngine && !mEngines.contains(aEngine))
        mEngines.append(aEngine);
}

} // namespace Hmi::Core
