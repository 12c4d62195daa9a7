#include <hmi/core/resources/ResourceBundle.h>
#include <hmi/core/resources/ResourceBundleCheck.h>

#include <QDirIterator>
#include <QFile>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QVector>
#include <QtEndian>
#include <gtest/gtest.h>

#include "TestBundle.h"

using Hmi::Core::BoundedBytes;
using Hmi::Core::ResourceBundle;
using Hmi::Core::ResourceBundleCheck;

namespace {

const HmiTest::Files Contents{{QStringLiteral("resources.xml"), "<resources/>"},
                              {QStringLiteral("images/day/needle.txt"), QByteArray(3000, 'n')},
                              {QStringLiteral("images/night/needle.txt"), QByteArray(900, 'm')},
                              {QStringLiteral("empty"), ""}};

bool isAccepted(const QByteArray& aBytes)
{
    const auto* data = reinterpret_cast<const uchar*>(aBytes.constData());
    return ResourceBundleCheck(BoundedBytes(data, quint64(aBytes.size()))).findFault() == nullptr;
}

HmiTest::Files readAll(const QString& aRoot)
{
    HmiTest::Files result;
    QDirIterator entry(aRoot, QDir::Files, QDirIterator::Subdirectories);
    while (entry.hasNext()) {
        QFile file(entry.next());
        if (file.open(QIODevice::ReadOnly))
            result.insert(file.fileName().mid(aRoot.size() + 1), file.readAll());
    }
    return result;
}

/** The options that rcc gets: every format version and compression. */
class ResourceBundleFormat : public testing::TestWithParam<const char*>
{
protected:
    void SetUp() override
    {
        const QStringList options = QString::fromLatin1(GetParam()).split(QLatin1Char(' '));
        HmiTest::writeBundle(mPath, Contents, options);
        QFile file(mPath);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        mBytes = file.readAll();
    }

    QTemporaryDir mFolder;
    QString mPath = mFolder.filePath(QStringLiteral("damage_check.rcc"));
    QByteArray mBytes;
};

TEST_P(ResourceBundleFormat, IsReadableBelowItsOwnRootWhileRegistered)
{
    auto bundle = ResourceBundle::open(mPath);
    ASSERT_TRUE(bundle);
    EXPECT_EQ(bundle->getRoot(), QStringLiteral(":/damage_check"));
    EXPECT_EQ(readAll(bundle->getRoot()), Contents);
    bundle.reset();
    EXPECT_FALSE(QFile::exists(QStringLiteral(":/damage_check")));
}

TEST_P(ResourceBundleFormat, IsRefusedWhenCutAnywhere)
{
    for (int length = 0; length < mBytes.size(); ++length) {
        // A copy of its own, so that a read behind the cut is seen by the sanitizer.
        const QByteArray cut(mBytes.constData(), length);
        ASSERT_FALSE(isAccepted(cut)) << length << " of " << mBytes.size() << " bytes";
    }
}

TEST_P(ResourceBundleFormat, IsSafeToReadWhenDamagedAndStillAccepted)
{
    // Damaged contents make Qt complain while it decompresses.
    const QtMessageHandler handler =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    QRandomGenerator random(20261121);
    int accepted = 0;
    for (int round = 0; round < 600; ++round) {
        QByteArray damaged(mBytes.constData(), mBytes.size());
        for (int flips = 1 + random.bounded(3); flips > 0; --flips) {
            // Half of them hit the names and the tree, which stand at the end.
            const int range = random.bounded(2) ? damaged.size() : std::min(damaged.size(), 300);
            const int position = damaged.size() - 1 - random.bounded(range);
            damaged[position] = char(damaged.at(position) ^ (1 << random.bounded(8)));
        }
        if (!isAccepted(damaged))
            continue;
        ++accepted;
        const QString path = mFolder.filePath(QStringLiteral("damaged.rcc"));
        HmiTest::writeFile(path, damaged);
        const auto bundle = ResourceBundle::open(path);
        if (bundle)
            readAll(bundle->getRoot());
    }
    qInstallMessageHandler(handler);
    EXPECT_GT(accepted, 20);
    EXPECT_LT(accepted, 580);
}

TEST_P(ResourceBundleFormat, IsRefusedWhenItsTreeOrASizeLies)
{
    const auto tree = int(qFromBigEndian<quint32>(mBytes.constData() + 8));
    const auto data = int(qFromBigEndian<quint32>(mBytes.constData() + 12));
    const int node = mBytes.at(7) == 1 ? 14 : 22;
    struct Lie
    {
        const char* what;
        int offset;
        quint32 value;
    };
    QVector<Lie> lies{
        {"format version 4", 4, 4},
        {"the root is its own child", tree + 10, 0},
        {"the root has more children than the tree", tree + 6, 1000},
        {"the children begin behind the tree", tree + 10, 0xfffffff0},
        {"a name lies outside", tree + node, 0xffffffff},
        {"data is longer than the file", data, 0x7fffffff},
        {"the tree lies outside", 8, 0x7fffffff},
    };
    for (int entry = tree + node; entry < mBytes.size(); entry += node) {
        const int content = data + qFromBigEndian<int>(mBytes.constData() + entry + 10) + 4;
        if (mBytes.at(entry + 5) & 1)
            lies.append({"zlib data claims 2 GB", content, 0x7fffffff});
        else if (mBytes.at(entry + 5) & 4)
            lies.append({"a Zstandard frame claims more than 2 GB", content + 4, 0xe07f7f7f});
    }
    for (const Lie& lie : qAsConst(lies)) {
        QByteArray damaged(mBytes.constData(), mBytes.size());
        qToBigEndian(lie.value, damaged.data() + lie.offset);
        EXPECT_FALSE(isAccepted(damaged)) << lie.what;
    }
    mBytes[tree + 5] = 0;
    EXPECT_FALSE(isAccepted(mBytes)) << "the root is no folder";
}

INSTANTIATE_TEST_SUITE_P(OfRcc, ResourceBundleFormat,
                         testing::Values("--format-version 1 --no-compress",
                                         "--format-version 2 --compress-algo zlib",
                                         "--format-version 3 --compress-algo zstd"));

} // namespace
