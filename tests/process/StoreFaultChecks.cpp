#include "ChildProcess.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QRandomGenerator>
#include <QStringList>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

constexpr int keys = 20;

/** A process that writes when it is told to; the key of a value is the value's remainder. */
class Writer : public QProcess
{
public:
    Writer(const QString& aConfiguration, const QString& aPrefix, int aFirst, int aCount)
    {
        setProcessChannelMode(QProcess::ForwardedErrorChannel);
        start(QStringLiteral(HMI_STORE_PROBE), {QStringLiteral("write"), aConfiguration, aPrefix,
                                                QString::number(aFirst), QString::number(aCount)});
    }

    void begin() { write("\n"); }

    void readLines(int aCount)
    {
        while (mOutput.count('\n') < aCount && waitForReadyRead(60000))
            mOutput += readAll();
    }

    /** What it said until it ended. */
    QStringList lines()
    {
        EXPECT_TRUE(waitForFinished(60000));
        return QString::fromUtf8(mOutput + readAll()).split(QLatin1Char('\n'));
    }

private:
    QByteArray mOutput;
};

class StoreProcesses : public testing::Test
{
protected:
    QString configuration(const QString& aDurability = QStringLiteral("normal")) const
    {
        QFile file(mFolder.filePath(aDurability + QStringLiteral(".ini")));
        EXPECT_TRUE(file.open(QFile::WriteOnly));
        file.write("[Storage]\nDurability=" + aDurability.toUtf8() + '\n');
        return file.fileName();
    }

    /** What a process that starts now finds under each key and, last, the shared one. */
    QVector<int> values(const QString& aPrefix) const
    {
        const ChildProcess reader = ChildProcess::run(QStringLiteral(HMI_STORE_PROBE),
                                                      {QStringLiteral("read"), configuration(), aPrefix});
        EXPECT_EQ(reader.status, 0);
        const QStringList lines = reader.output.split(QLatin1Char('\n'));
        EXPECT_EQ(lines.first().toStdString(), "started 0");
        EXPECT_TRUE(QDir(mFolder.path()).entryList({QStringLiteral("*damaged*")}).isEmpty());
        QVector<int> found;
        for (const QString& line : lines.mid(1))
            found.append(line.toInt());
        found.resize(keys + 1);
        return found;
    }

    const QTemporaryDir mFolder;
};

} // namespace

TEST_F(StoreProcesses, KeepWhatWasAcknowledgedBeforeTheProcessWasKilled)
{
    const QString prefix = QStringLiteral("killed");
    QRandomGenerator random(1);
    for (int round = 1; round <= 50 && !HasFailure(); ++round) {
        SCOPED_TRACE(round);
        const QString durability = round % 2 ? QStringLiteral("normal") : QStringLiteral("full");
        Writer writer(configuration(durability), prefix, round * 1000000, 1000000);
        writer.begin();
        writer.readLines(int(random.bounded(round % 5 ? 100 : 600)));
        writer.kill();
        const QStringList acknowledged = writer.lines().filter(QStringLiteral("ack "));
        const QVector<int> found = values(prefix);
        for (const QString& line : acknowledged)
            EXPECT_GE(found.at(line.mid(4).toInt() % keys), line.mid(4).toInt());
    }
}

TEST_F(StoreProcesses, LoseNothingWhenTwoWriteAtOnce)
{
    constexpr int count = 2000;
    Writer left(configuration(), QStringLiteral("left"), 1, count);
    Writer right(configuration(QStringLiteral("full")), QStringLiteral("right"), 1, count);
    left.begin();
    right.begin();
    // What met a busy file is in it after the shutdown.
    for (const QStringList& lines : {left.lines(), right.lines()})
        EXPECT_EQ(lines.filter(QStringLiteral("ack ")).size() +
                      lines.filter(QStringLiteral("code 902")).size(),
                  count);
    for (const QString& prefix : {QStringLiteral("left"), QStringLiteral("right")}) {
        const QVector<int> found = values(prefix);
        for (int value = count; value > count - keys; --value)
            EXPECT_EQ(found.at(value % keys), value);
        EXPECT_EQ(found.last(), count);
    }
}

TEST_F(StoreProcesses, MakeOneStoreWhenTwoStartAtOnce)
{
    for (int round = 0; round < 10 && !HasFailure(); ++round) {
        Writer left(configuration(), QStringLiteral("left"), 1, keys);
        Writer right(configuration(), QStringLiteral("right"), 1, keys);
        left.begin();
        right.begin();
        for (const QStringList& lines : {left.lines(), right.lines()})
            EXPECT_EQ(lines.first().toStdString(), "started 0");
        for (const QString& prefix : {QStringLiteral("left"), QStringLiteral("right")})
            EXPECT_EQ(values(prefix).at(1), 1) << qPrintable(prefix);
        QDir folder(mFolder.path());
        for (const QString& file : folder.entryList({QStringLiteral("hmi_settings.db*")}))
            EXPECT_TRUE(folder.remove(file));
    }
}
