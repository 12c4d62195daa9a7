#include <hmi/core/language/LanguageManager.h>

#include <QDataStream>
#include <QQmlComponent>
#include <gtest/gtest.h>

#include <tests/support/ExpectedMessages.h>
#include <tests/support/FilesAndWaits.h>

using namespace Hmi::Core;
using namespace HmiTest;

namespace {

/** A .qm file that translates a text of one letter, which is its own hash, in the context "Checks". */
QByteArray translationOf(char aLetter, const char* aText)
{
    QByteArray message;
    QDataStream(&message, QIODevice::WriteOnly)
        << quint8(3) << QString::fromUtf8(aText) << quint8(8) << QByteArray("") << quint8(6)
        << QByteArray(1, aLetter) << quint8(7) << QByteArray("Checks") << quint8(1);
    const QByteArray contexts("\0\1\0\1\0\0\6Checks\0", 14);
    QByteArray hashes;
    QDataStream(&hashes, QIODevice::WriteOnly) << quint32(aLetter) << quint32(0);
    QByteArray sections;
    QDataStream(&sections, QIODevice::WriteOnly) << quint8(0xa7) << QByteArray("de") << quint8(0x42) << hashes
                                                 << quint8(0x2f) << contexts << quint8(0x69) << message;
    return QByteArray::fromHex("3cb86418caef9c95cd211cbf60a1bddd") + sections;
}

/** What the application shows for the texts H (hello) and B (back). */
std::string shown()
{
    return joined({QCoreApplication::translate("Checks", "H"), QCoreApplication::translate("Checks", "B")});
}

TEST(Translations, InstallTheFilesOfTheBestMatchUnlessOneIsDamaged)
{
    const QTemporaryDir folder;
    writeFile(folder, "de_CH.qm", translationOf('H', "Grüezi"));
    writeFile(folder, "de_DE.qm", translationOf('H', "Hallo"));
    writeFile(folder, "hmi_shared_de_DE.qm", translationOf('B', "Zurück"));
    writeFile(folder, "fr_CA.qm", translationOf('H', "Allô"));
    writeFile(folder, "a_it_IT.qm", translationOf('H', "Ciao"));
    for (const char* name : {"app.qm", "app_de.qm", "b_it_IT.qm", "xx_XX.qm", "de_DE.txt", "de_de.qm"})
        writeFile(folder, name, "damaged, but only read for Italian");
    auto translations = std::make_unique<Translations>(folder.path());
    EXPECT_EQ(joined(translations->getCodes()), "de_CH,de_DE,fr_CA,it_IT");
    for (const auto& [code, expected] :
         {std::pair("de_CH", "Grüezi,B"), std::pair("de_AT", "Hallo,Zurück"), std::pair("fr_FR", "Allô,B"),
          std::pair("en_US", "H,B"), std::pair("de_DE", "Hallo,Zurück")}) {
        EXPECT_TRUE(translations->install(QLatin1String(code)));
        EXPECT_EQ(shown(), expected) << code;
    }
    expectMessageMatching(QtWarningMsg, QStringLiteral("The translation '.+/b_it_IT.qm' is damaged .+"));
    EXPECT_FALSE(translations->install(QStringLiteral("it_IT")));
    EXPECT_EQ(shown(), "Hallo,Zurück");
    translations.reset();
    EXPECT_EQ(shown(), "H,B");
}

TEST(Translations, OfDamagedFilesAreRefusedOrSafeToLookUp)
{
    const QTemporaryDir folder;
    const auto load = [&folder](const QByteArray& aContent) {
        writeFile(folder, "file.qm", aContent);
        return TranslationFile::load(folder.filePath(QStringLiteral("file.qm")));
    };
    const auto handler = qInstallMessageHandler([](auto, auto&, auto&) {});
    const QByteArray intact = translationOf('H', "Hallo");
    for (int length = 0; length < intact.size(); ++length)
        EXPECT_FALSE(load(intact.left(length))) << length << " of " << intact.size() << " bytes";
    int accepted = 0;
    for (int bit = 0; bit < intact.size() * 8; ++bit) {
        QByteArray damaged = intact;
        damaged[bit / 8] = char(damaged.at(bit / 8) ^ (1 << bit % 8));
        if (const auto file = load(damaged)) {
            ++accepted;
            file->install();
            shown();
        }
    }
    qInstallMessageHandler(handler);
    EXPECT_GT(accepted, 0);
    // Beyond the memory of a 32-bit process.
    const QString path = folder.filePath(QStringLiteral("file.qm"));
    QFile::resize(path, qint64(3) << 30);
    expectWarning(
        QStringLiteral("The translation '%1' cannot be read: it has more than 67108864 bytes.").arg(path));
    EXPECT_FALSE(TranslationFile::load(path));
}

TEST(LanguageManager, RetranslatesTheEnginesOnceForEachChangeAndRefusesWhatIsNoCode)
{
    LanguageManager* const manager = LanguageManager::instance();
    const QString before = manager->getCurrentLanguage();
    manager->setCurrentLanguage(QString());
    EXPECT_TRUE(Translations::isCode(manager->getLanguageCode()));
    auto gone = std::make_unique<QQmlEngine>();
    QQmlEngine engine;
    manager->addEngine(gone.get());
    manager->addEngine(&engine);
    manager->addEngine(&engine);
    gone.reset();
    QQmlComponent component(&engine);
    component.setData("import QtQml 2.15\n"
                      "QtObject { property var n: [0]; property string text: qsTr('Hello') + ++n[0] }",
                      QUrl());
    const std::unique_ptr<QObject> object(component.create());
    QStringList codes;
    QObject::connect(manager, &LanguageManager::currentLanguageChanged, &engine,
                     [&] { codes.append(manager->getLanguageCode()); });

    for (const char* code : {"de_DE", "fil_PH", "fil_PH"})
        EXPECT_TRUE(manager->setCurrentLanguage(QLatin1String(code))) << code;
    for (const char* code : {"de", "DE_de", "en-US", "xx_XX", "en_US.UTF-8", "en_US\n", "../de_DE", "C"}) {
        expectWarning(QStringLiteral("'%1' is no language code; codes have the form \"en_US\".")
                          .arg(QLatin1String(code)));
        EXPECT_FALSE(manager->setCurrentLanguage(QLatin1String(code))) << code;
    }
    EXPECT_EQ(codes, (QStringList{QStringLiteral("de_DE"), QStringLiteral("fil_PH")}));
    EXPECT_EQ(object->property("text").toString(), QStringLiteral("Hello3"));
    manager->setCurrentLanguage(before);
}

} // namespace
