#include <hmi/shared/services/ProductInfo.h>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <tests/support/ExpectedMessages.h>
#include <tests/support/FilesAndWaits.h>

using namespace HmiTest;
using Hmi::Shared::ProductInfoFiles;
using Info = Hmi::Shared::ProductInfo;

namespace {

static_assert(Info::softwareVersionCode(3, 8, 5) == 30805 && Info::softwareVersionCode(3, 8, -1) == 30800);
static_assert(Info::softwareVersionCode(3, -1, 5) == -1 && Info::softwareVersionCode(-1, 8, 5) == -1);

TEST(ProductInfo, TakesTheFirstLineOfAFileThatHasOne)
{
    const QTemporaryDir folder;
    const Info info({{}, {}, folder.filePath(QStringLiteral("version"))});
    const QByteArray longest(Info::MaximumLineLength, 'x');
    const std::pair<QByteArray, QByteArray> files[] = {
        {"V1", "V1"},
        {"V1\r\nV2\n", "V1"},
        {QByteArray("B\0C\0", 4), "B"},
        {"\xef\xbb\xbf \xc3\x84\xff\n", " \xc3\x84\xef\xbf\xbd"},
        {"\nV2", ""},
        {"", ""},
        {longest + "\nV2", longest},
        {longest, longest},
    };
    for (const auto& [content, expected] : files) {
        writeFile(folder, "version", content);
        EXPECT_EQ(info.getSoftwareVersionString(), QString::fromUtf8(expected));
    }
    writeFile(folder, "version", longest + 'x');
    ::mkfifo(QFile::encodeName(folder.filePath(QStringLiteral("pipe"))).constData(), 0600);
    for (const QString& path : {folder.filePath(QStringLiteral("version")), folder.path(), QString(),
                                folder.filePath(QStringLiteral("pipe")), QStringLiteral("/dev/zero")}) {
        expectCritical(
            QStringLiteral("ProductInfo::getSoftwareVersionString -- Failed to read software version file"));
        EXPECT_EQ(Info({{}, {}, path}).getSoftwareVersionString(), QStringLiteral("XX.XX.XX"));
    }
}

TEST(ProductInfo, KeepsTheHardwareIdentityOnceItIsThere)
{
    const QTemporaryDir folder;
    const ProductInfoFiles files{
        folder.filePath(QStringLiteral("esn")), folder.filePath(QStringLiteral("pcb")), {}};
    const Info info(files);
    for (int call = 0; call < 2; ++call) {
        expectCritical(QStringLiteral("Failed to read hardware ESN file"));
        expectCritical(QStringLiteral("Failed to read PCB version file"));
        EXPECT_EQ(info.getHardwareEsn() + info.getHardwareVersion(), QString());
    }
    // While it is empty it is looked for again.
    for (const char* esn : {"", "E1\n", "E2\n"})
        writeFile(folder, "esn", esn), info.getHardwareEsn();
    writeFile(folder, "pcb", QByteArray("R3\0", 3));
    EXPECT_EQ(info.getHardwareEsn() + info.getHardwareVersion(), QStringLiteral("E1R3"));
    EXPECT_EQ(Info(files).getHardwareEsn(), QStringLiteral("E1"));
    EXPECT_EQ(Info({files.hardwareVersion, {}, {}}).getHardwareEsn(), QStringLiteral("R3"));
}

} // namespace
