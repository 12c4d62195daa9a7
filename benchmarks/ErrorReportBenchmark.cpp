#include <QDirIterator>
#include <QFile>
#include <QTemporaryDir>
#include <QXmlStreamReader>
#include <benchmark/benchmark.h>

#include <hmi/shared/services/ErrorReportModel.h>

namespace {

/** A thousand reports of about five kilobytes, most of that a backtrace. */
class ReportFolder
{
public:
    ReportFolder()
    {
        QByteArray backtrace;
        for (int frame = 0; frame < 50; ++frame)
            backtrace +=
                '#' + QByteArray::number(frame) +
                " 0x00007f3a11223344 in Route::Leg::next(int&amp;) at /usr/src/navigation/route.cpp:17\n";
        for (int number = 0; number < 1000; ++number)
            writeReport(number, backtrace);
    }

    QString path() const { return mFolder.path(); }

private:
    void writeReport(int aNumber, const QByteArray& aBacktrace)
    {
        QFile file(mFolder.filePath(QStringLiteral("%1.xml").arg(aNumber)));
        if (!file.open(QFile::WriteOnly))
            qFatal("%s cannot be written", qPrintable(file.fileName()));
        file.write(
            "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<CrashReport>\n<ParserVersion>1.2</ParserVersion>\n"
            "<ProcessName>navigation</ProcessName>\n<Product>R7</Product>\n<UnitId>" +
            QByteArray::number(aNumber) +
            "</UnitId>\n<logfile>/var/log/navigation.log</logfile>\n<Backtrace>" + aBacktrace +
            "</Backtrace>\n<ShutdownInfo>signal 11</ShutdownInfo>\n</CrashReport>\n");
    }

    const QTemporaryDir mFolder;
};

} // namespace

static void ErrorReportListing(benchmark::State& aState)
{
    const ReportFolder folder;
    for (auto _ : aState) {
        const Hmi::Shared::ErrorReportModel model(folder.path(), QString());
        if (model.getLength() != 1000)
            aState.SkipWithError("reports are missing");
    }
}
BENCHMARK(ErrorReportListing);

/** Every text of the same files, kept nowhere. */
static void BareReportReading(benchmark::State& aState)
{
    const ReportFolder folder;
    for (auto _ : aState) {
        QDirIterator entries(folder.path());
        while (entries.hasNext()) {
            QFile file(entries.next());
            if (!file.open(QFile::ReadOnly))
                continue;
            QXmlStreamReader reader(&file);
            while (!reader.atEnd())
                if (reader.readNext() == QXmlStreamReader::Characters)
                    benchmark::DoNotOptimize(reader.text().toString());
        }
    }
}
BENCHMARK(BareReportReading);
