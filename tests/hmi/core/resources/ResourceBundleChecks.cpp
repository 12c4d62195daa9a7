#include <hmi/core/resources/ResourceBundle.h>
#include <hmi/core/resources/ResourceBundleCheck.h>

#include <QDirIterator>
#include <QRandomGenerator>
#include <QVector>
#include <tuple>

#include "TestBundle.h"

using namespace Hmi::Core;
using namespace HmiTest;

namespace {

const Files Contents{{"resources.xml", "<resources/>"},
                     {"images/day/needle.txt", QByteArray(3000, 'n')},
                     {"images/night/needle.txt", QByteArray(900, 'm')},
                     {"empty", ""}};

bool isAccepted(const QByteArray& aBytes)
{
    const auto* data = reinterpret_cast<const uchar*>(aBytes.constData());
    return ResourceBundleCheck(BoundedBytes(data, quint64(aBytes.size()))).findFault() == nullptr;
}

Files readAll(const QString& aRoot)
{
    Files result;
    QDirIterator entry(aRoot, QDir::Files, QDirIterator::Subdirectories);
    while (entry.hasNext()) {
        const QString path = entry.next();
        result.insert(path.mid(aRoot.size() + 1).toUtf8(), readFile(path));
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
        writeBundle(mFolder, "damage_check.rcc", Contents, options);
        mBytes = readFile(mPath);
    }

    const QTemporaryDir mFolder;
    const QString mPath = mFolder.filePath(QStringLiteral("damage_check.rcc"));
    QByteArray mBytes;
};

TEST_P(ResourceBundleFormat, IsReadableBelowItsOwnRootWhileRegistered)
{
    auto bundle = ResourceBundle::open(mPath);
    EXPECT_EQ(readAll(QStringLiteral(":/damage_check")), Contents);
    bundle.reset();
    EXPECT_FALSE(QFile::exists(QStringLiteral(":/damage_check")));
}

TEST_P(ResourceBundleFormat, IsSafeToReadWhenDamagedAndStillAccepted)
{
    // Damaged contents make Qt complain while it decompresses.
    const auto handler = qInstallMessageHandler([](auto, auto&, auto&) {});
    QRandomGenerator random(20261121);
    int accepted = 0;
    for (int round = 0; round < 600; ++round) {
        QByteArray damaged = mBytes;
        for (int flips = 1 + random.bounded(3); flips > 0; --flips) {
            // Half of them hit the names and the tree, which stand at the end.
            const int range = random.bounded(2) ? damaged.size() : std::min(damaged.size(), 300);
            const int position = damaged.size() - 1 - random.bounded(range);
            damaged[position] = char(damaged.at(position) ^ (1 << random.bounded(8)));
        }
        accepted += isAccepted(damaged) ? 1 : 0;
        writeFile(mFolder, "damaged.rcc", damaged);
        if (const auto bundle = ResourceBundle::open(mFolder.filePath(QStringLiteral("damaged.rcc"))))
            readAll(bundle->getRoot());
    }
    qInstallMessageHandler(handler);
    EXPECT_GT(accepted, 20);
}

TEST_P(ResourceBundleFormat, IsRefusedWhenCutAnywhereAndWhenItsTreeOrASizeLies)
{
    for (int length = 0; length < mBytes.size(); ++length) {
        // A copy of its own, so that a read behind the cut is seen by the sanitizer.
        const QByteArray cut(mBytes.constData(), length);
        ASSERT_FALSE(isAccepted(cut)) << length << " of " << mBytes.size() << " bytes";
    }
    const auto number = [this](int offset) { return qFromBigEndian<int>(mBytes.constData() + offset); };
    const int tree = number(8);
    const int data = number(12);
    const int node = number(4) == 1 ? 14 : 22;
    using Lie = std::tuple<const char*, int, quint32>;
    QVector<Lie> lies{
        {"format version 4", 4, 4},
        {"the tree lies outside", 8, 0x7fffffff},
        {"the root is no folder", tree + 2, 0},
        {"the root is its own child", tree + 10, 0},
        {"the root has more children than the tree", tree + 6, 1000},
        {"the children begin behind the tree", tree + 10, 0xfffffff0},
        {"a name lies outside", tree + node, 0xffffffff},
        {"data is longer than the file", data, 0x7fffffff},
    };
    for (int entry = tree + node; entry < mBytes.size(); entry += node) {
        const int content = data + number(entry + 10) + 4;
        if (mBytes.at(entry + 5) & 1)
            lies.append(Lie("zlib data claims 2 GB", content, 0x7fffffff));
        else if (mBytes.at(entry + 5) & 4)
            lies.append(Lie("a Zstandard frame claims more than 2 GB", content + 4, 0xe07f7f7f));
    }
    for (const auto& [what, offset, value] : qAsConst(lies)) {
        QByteArray damaged = mBytes;
        qToBigEndian(value, damaged.data() + offset);
        EXPECT_FALSE(isAccepted(damaged)) << what;
    }
}

INSTANTIATE_TEST_SUITE_P(OfRcc, ResourceBundleFormat,
                         testing::Values("--format-version 1 --no-compress",
                                         "--format-version 2 --compress-algo zlib",
                                         "--format-version 3 --compress-algo zstd"));

} // namespace
