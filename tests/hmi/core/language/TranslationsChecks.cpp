#include <hmi/core/language/Translations.h>

#include <QCoreApplication>
#include <QDataStream>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <tests/hmi/core/resources/TestBundle.h>
#include <tests/support/ExpectedMessages.h>

using Hmi::Core::TranslationFile;
using Hmi::Core::Translations;

namespace {

quint32 hashOf(const QByteArray& aText)
{
    quint32 hash = 0;
    for (const char letter : aText) {
        hash = (hash << 4) + uchar(letter);
        hash ^= (hash & 0xf0000000) >> 24;
        hash &= 0x0fffffff;
    }
    return hash;
}

/** A .qm file that translates the text in the context "Checks". */
QByteArray translationOf(const QByteArray& aSource, const QString& aText)
{
    QByteArray message;
    QDataStream(&message, QIODevice::WriteOnly)
        << quint8(3) << aText << quint8(8) << QByteArray("") << quint8(6) << aSource << quint8(7)
        << QByteArray("Checks") << quint8(1);
    const QByteArray contexts("\0\1\0\1\0\0\6Checks\0", 14);
    QByteArray hashes;
    QDataStream(&hashes, QIODevice::WriteOnly) << hashOf(aSource) << quint32(0);
    QByteArray sections;
    QDataStream(&sections, QIODevice::WriteOnly) << quint8(0xa7) << QByteArray("de") << quint8(0x42) << hashes
                                                 << quint8(0x2f) << contexts << quint8(0x69) << message;
    return QByteArray::fromHex("3cb86418caef9c95cd211cbf60a1bddd") + sections;
}

QString shown(const char* aSource) { return QCoreApplication::translate("Checks", aSource); }

class TranslationsFolder : public testing::Test
{
protected:
    QString write(const char* aName, const QByteArray& aContent) const
    {
        const QString path = mFolder.filePath(QString::fromLatin1(aName));
        HmiTest::writeFile(path, aContent);
        return path;
    }
    void write(const char* aName, const QByteArray& aSource, const char* aText) const
    {
        write(aName, translationOf(aSource, QString::fromUtf8(aText)));
    }

    QTemporaryDir mFolder;
};

TEST_F(TranslationsFolder, InstallsTheFilesOfTheBestMatch)
{
    write("de_CH.qm", "Hello", "Grüezi");
    write("de_DE.qm", "Hello", "Hallo");
    write("hmi_shared_de_DE.qm", "Back", "Zurück");
    write("fr_CA.qm", "Hello", "Allô");
    for (const char* name : {"app.qm", "app_de.qm", "xx_XX.qm", "de_DE.txt", "de_de.qm"})
        write(name, "ignored, so never read");
    const char* const rows[][3] = {{"de_DE", "Hallo", "Zurück"},
                                   {"de_CH", "Grüezi", "Back"},
                                   {"de_AT", "Hallo", "Zurück"},
                                   {"fr_FR", "Allô", "Back"},
                                   {"en_US", "Hello", "Back"}};
    {
        Translations translations(mFolder.path());
        EXPECT_EQ(translations.getCodes().join(QLatin1Char(' ')), QStringLiteral("de_CH de_DE fr_CA"));
        for (const auto& [code, hello, back] : rows) {
            EXPECT_TRUE(translations.install(QString::fromLatin1(code)));
            EXPECT_EQ(shown("Hello"), QString::fromUtf8(hello)) << code;
            EXPECT_EQ(shown("Back"), QString::fromUtf8(back)) << code;
        }
    }
    EXPECT_EQ(shown("Hello"), QStringLiteral("Hello"));
}

TEST_F(TranslationsFolder, KeepsWhatIsInstalledWhenOneFileIsDamaged)
{
    write("de_DE.qm", "Hello", "Hallo");
    write("a_fr_FR.qm", "Hello", "Bonjour");
    const QString damaged = write("b_fr_FR.qm", "damaged");
    Translations translations(mFolder.path());
    ASSERT_TRUE(translations.install(QStringLiteral("de_DE")));
    HmiTest::expectWarning(QStringLiteral("The translation '%1' is damaged or holds no texts; build it with "
                                          "lrelease.")
                               .arg(damaged));
    EXPECT_FALSE(translations.install(QStringLiteral("fr_FR")));
    EXPECT_EQ(shown("Hello"), QStringLiteral("Hallo"));
}

TEST_F(TranslationsFolder, HoldsDamagedFilesThatAreRefusedOrSafeToLookUp)
{
    const QtMessageHandler handler =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    const QByteArray intact = translationOf("Hello", QStringLiteral("Hallo"));
    for (int length = 0; length < intact.size(); ++length) {
        const QString path = write("cut.qm", intact.left(length));
        EXPECT_FALSE(TranslationFile::load(path)) << length << " of " << intact.size() << " bytes";
    }
    int accepted = 0;
    for (int bit = 0; bit < intact.size() * 8; ++bit) {
        QByteArray damaged = intact;
        damaged[bit / 8] = char(damaged.at(bit / 8) ^ (1 << bit % 8));
        const auto file = TranslationFile::load(write("flipped.qm", damaged));
        if (!file)
            continue;
        ++accepted;
        file->install();
        shown("Hello");
    }
    qInstallMessageHandler(handler);
    EXPECT_GT(accepted, 0);
}

TEST(TranslationsCode, HasALanguageThatQtKnowsAndACountry)
{
    for (const char* code : {"en_US", "de_AT", "zh_TW", "fil_PH"})
        EXPECT_TRUE(Translations::isCode(QString::fromLatin1(code))) << code;
    for (const char* code : {"", "de", "DE_de", "en-US", "xx_XX", "en_US.UTF-8", "en_US\n", "../de_DE", "C"})
        EXPECT_FALSE(Translations::isCode(QString::fromLatin1(code))) << code;
}

} // namespace
