#include <hmi/core/language/LanguageManager.h>

#include <QQmlComponent>
#include <QTranslator>
#include <gtest/gtest.h>

#include <tests/support/ExpectedMessages.h>

using Hmi::Core::LanguageManager;

namespace {

/** "Translates" every text of the check's component into the code of the language. */
class CodeTranslator : public QTranslator
{
public:
    QString translate(const char* aContext, const char*, const char*, int) const override
    {
        const bool isOurs = qstrcmp(aContext, "LanguageManagerCheck") == 0;
        return isOurs ? LanguageManager::instance()->getLanguageCode() : QString();
    }
    bool isEmpty() const override { return false; }
};

class LanguageManagerChange : public testing::Test
{
protected:
    void SetUp() override { mManager->setCurrentLanguage(QString()); }
    void TearDown() override { mManager->setCurrentLanguage(mBefore); }

    LanguageManager* mManager = LanguageManager::instance();
    const QString mBefore = mManager->getCurrentLanguage();
};

TEST_F(LanguageManagerChange, RetranslatesTheEngines)
{
    CodeTranslator translator;
    QCoreApplication::installTranslator(&translator);
    auto gone = std::make_unique<QQmlEngine>();
    QQmlEngine engine;
    mManager->addEngine(gone.get());
    mManager->addEngine(&engine);
    gone.reset();
    QQmlComponent component(&engine);
    component.setData("import QtQml 2.15\nQtObject { property string text: qsTr('Hello') }",
                      QUrl(QStringLiteral("qrc:/LanguageManagerCheck.qml")));
    const std::unique_ptr<QObject> object(component.create());
    ASSERT_TRUE(object) << qPrintable(component.errorString());

    for (const QString& code : {QStringLiteral("de_DE"), QStringLiteral("fr_FR")}) {
        EXPECT_TRUE(mManager->setCurrentLanguage(code));
        EXPECT_EQ(object->property("text").toString(), code);
    }
}

TEST_F(LanguageManagerChange, IsAnnouncedOnceAndRefusedForWhatIsNoCode)
{
    int changes = 0;
    const auto connection =
        QObject::connect(mManager, &LanguageManager::currentLanguageChanged, [&] { ++changes; });
    EXPECT_TRUE(Hmi::Core::Translations::isCode(mManager->getLanguageCode()));
    EXPECT_TRUE(mManager->setCurrentLanguage(QStringLiteral("de_AT")));
    EXPECT_TRUE(mManager->setCurrentLanguage(QStringLiteral("de_AT")));
    HmiTest::expectWarning(QStringLiteral("'deutsch' is no language code; codes have the form \"en_US\"."));
    EXPECT_FALSE(mManager->setCurrentLanguage(QStringLiteral("deutsch")));
    EXPECT_EQ(mManager->getLanguageCode(), QStringLiteral("de_AT"));
    EXPECT_EQ(changes, 1);
    QObject::disconnect(connection);
}

} // namespace
