#include <hmi/core/resources/XmlLoader.h>

#include <QXmlStreamReader>
#include <gtest/gtest.h>
#include <tests/support/ExpectedMessages.h>
#include <tests/support/FilesAndWaits.h>

using Hmi::Core::XmlLoader;
using namespace HmiTest;

namespace {

struct XmlFiles : testing::Test
{
    XmlFiles()
    {
        for (const char* tag : {"A", "b"})
            loader.addTag(
                QLatin1String(tag),
                [this](const QXmlStreamReader& reader) {
                    calls += QLatin1Char('<') + reader.name() + reader.attributes().value(QLatin1String("n"));
                },
                [this](const QString& text) { calls += QLatin1Char('|') + text + QLatin1Char('>'); });
        loader.addTag(QStringLiteral("silent"), {}, {});
    }

    bool load(const QByteArray& aXml)
    {
        calls.clear();
        writeFile(folder, "x.xml", aXml);
        return loader.load(folder.filePath(QStringLiteral("x.xml")));
    }

    QTemporaryDir folder;
    XmlLoader loader;
    QString calls;
};

} // namespace

TEST_F(XmlFiles, CallBackForTheirAddedTagsOnly)
{
    const QByteArray large(1000000, 'x');
    const std::pair<QByteArray, QByteArray> files[] = {
        {"<A n='1'>1<b n='2'>2</b>3<c>4<b/></c></A>", "<A1<b2|2><b|>|13>"},
        {"<r><a>1</a><B>2</B><silent>3</silent></r>", ""},
        {"<!DOCTYPE A SYSTEM '>'><A> \n&lt;&#65;<!-- ' < -->&amp;<?a \"?></A>", "<A| \n<A&>"},
        {"<?xml version='1.0' encoding='iso-8859-1'?><A>\xe4</A>", "<A|\xc3\xa4>"},
        {"\xef\xbb\xbf<x:A xmlns:x='y' n='>'>\xe2\x82\xac</x:A>", "<A>|\xe2\x82\xac>"},
        {"<A><![CDATA[<!-- \" ' <" + large + "]]></A>", "<A|<!-- \" ' <" + large + ">"},
        {"<A>" + large + "</A>", "<A|" + large + ">"},
    };
    for (const auto& [xml, expected] : files) {
        EXPECT_TRUE(load(xml)) << xml.left(60).constData();
        EXPECT_EQ(calls.toUtf8(), expected);
    }
}

TEST_F(XmlFiles, AreRefusedWithLineAndReasonWhenTheyAreFaultyOrCostTooMuch)
{
    QByteArray many;
    for (int number = 0; number < 100000; ++number)
        many += " a" + QByteArray::number(number) + "=''";
    const char* tag = "1: a tag has more than 16384 bytes\\.";
    const char* declared = "1: the document type has declarations\\.";
    const std::pair<QByteArray, const char*> files[] = {
        {"", "1: .+"},
        {"<A>\n<b>", "2: .+"},
        {"<A><![CDATA[", "1: .+"},
        {"<A>\n&x;</A>", "2: .+"},
        {"<A>\xff</A>", "1: .+"},
        {QByteArray("\x7f\n\x02\0\x03", 5), "2: it is no text\\."},
        {"<?xml version='1.0' encoding='ISO-2022-JP'?><A/>", "1: the encoding 'ISO-2022-JP' is not read\\."},
        {"<!DOCTYPE r [<!ENTITY a 'aa'><!ENTITY b '&a;&a;'>]><r>&b;</r>", declared},
        {"<!DOCTYPE r SYSTEM '>' [<!ENTITY % a SYSTEM 'http://127.0.0.1/'>%a;]><r/>", declared},
        {"<A><b" + many + "/></A>", tag},
        {"<A><b x='>'" + many, tag},
        {"<!--><![CDATA[--><A" + many + "/>", tag},
        {"<A" + many.left(445) + "/>", "1: a tag has more than 64 attributes\\."},
        {QByteArray("<x>").repeated(500000), "1: more than 64 elements are in each other\\."},
    };
    for (const auto& [xml, fault] : files) {
        expectMessageMatching(QtWarningMsg, QStringLiteral("The XML file '.+/x\\.xml' is faulty in line ") +
                                                QLatin1String(fault));
        EXPECT_FALSE(load(xml)) << xml.left(60).constData();
    }
    expectMessageMatching(QtWarningMsg,
                          QStringLiteral(".+ cannot be read: it has more than 2097152 bytes\\."));
    EXPECT_FALSE(load(QByteArray(2 * 1024 * 1024 + 1, ' ')));
    EXPECT_TRUE(load(QByteArray("<x>").repeated(64) + QByteArray("</x>").repeated(64)));
    expectMessageMatching(QtWarningMsg, QStringLiteral("The XML file '/none' cannot be read: .+"));
    EXPECT_FALSE(loader.load(QStringLiteral("/none")));
}
