#include <QCoreApplication>
#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QThread>
#include <gtest/gtest.h>
#include <memory>
#include <tuple>

#include <platform/metron/PerformanceCapture.h>
#include <tests/support/FilesAndWaits.h>
#include <tests/support/FullMedium.h>

using namespace Metron;
using Text = QLatin1String;

class PerformanceRecordings : public testing::Test
{
protected:
    PerformanceRecordings()
    {
        mWorker.setObjectName(Text("loader"));
        mWorker.start();
        mOnWorker.moveToThread(&mWorker);
    }
    ~PerformanceRecordings() override
    {
        mWorker.quit();
        mWorker.wait();
    }

    QString path(const char* aName) const { return mFolder.filePath(Text(aName)); }

    /** The descriptor is written with ' for ". */
    unsigned long load(QByteArray aDescriptor)
    {
        HmiTest::writeFile(mFolder, "d.json", aDescriptor.replace('\'', '"'));
        return mCapture.LoadDescriptorFile(path("d.json"));
    }

    /** Names with a blank between; those with a plus are raised on the worker. */
    QJsonObject recorded(const QByteArray& aDescriptor, const char* aEvents)
    {
        EXPECT_EQ(load(aDescriptor), Success);
        EXPECT_EQ(mCapture.StartRecording(Text("Check")), Success);
        for (const QString& event : QString(Text(aEvents)).split(Text(" "))) {
            if (event.startsWith(Text("+")))
                QMetaObject::invokeMethod(
                    &mOnWorker, [&] { mRing->raise(event.mid(1)); }, Qt::BlockingQueuedConnection);
            else
                mRing->raise(event);
        }
        EXPECT_EQ(mCapture.CaptureResults(), Success) << qPrintable(mCapture.getReason());
        EXPECT_EQ(mCapture.SaveTestResultJson(path("r.json")), Success) << qPrintable(mCapture.getReason());
        return QJsonDocument::fromJson(HmiTest::readFile(path("r.json"))).object();
    }

    const QTemporaryDir mFolder;
    const std::unique_ptr<EventRing> mRing = std::make_unique<EventRing>();
    PerformanceCapture mCapture{*mRing};
    QThread mWorker;
    QObject mOnWorker;
};

/** Phase, name and id of each event; with a dash when it is not of the main thread. */
static std::string eventsOf(const QJsonObject& aTrace)
{
    QStringList events;
    for (const QJsonValue& value : aTrace[Text("traceEvents")].toArray()) {
        const bool other = value[Text("tid")].toInt() != QCoreApplication::applicationPid();
        const QString id = value[Text("id")].toVariant().toString();
        if (value[Text("ph")] != Text("M"))
            events += value[Text("ph")].toString() + id + Text(" ") + value[Text("name")].toString() +
                      Text(other ? "'" : "");
    }
    return HmiTest::joined(events);
}

TEST_F(PerformanceRecordings, RefuseADescriptorWithAFaultAndKeepTheOneBefore)
{
    const std::tuple<QByteArray, unsigned long, const char*> rows[] = {
        {"{'name': 'Check', 'filter': ['x'], 'limit': 512}", Success, ""},
        {"['name']", NotJson, "JSON"},
        {"{'name': 'A', 'filters': ['x']}", UnknownKey, "'filters'"},
        {"{'name': 1}", WrongType, "name has"},
        {"{'name': 'A', 'filter': []}", WrongType, "filter has"},
        {"{'name': 'A', 'filter': ['x', 1]}", WrongType, "filter has"},
        {"{'name': 'A', 'limit': 0}", LimitOutOfRange, "1 to 512"},
        {"{'name': 'A', 'limit': 513}", LimitOutOfRange, "1 to 512"},
        {"{'name': 'A', 'limit': 1e300}", LimitOutOfRange, "whole"},
        {"{'name': 'A', 'limit': 1.5}", LimitOutOfRange, "whole"},
        {QByteArray("{'name': 'A'}").leftJustified(64 * 1024 + 1), TooLarge, "64 KiB"},
        {QByteArray("{'name': 'Check'}").leftJustified(64 * 1024), Success, ""},
    };
    for (const auto& [descriptor, code, reason] : rows) {
        EXPECT_EQ(load(descriptor), code) << descriptor.left(80).constData();
        const QString words = mCapture.getReason();
        EXPECT_TRUE(words.contains(Text(reason))) << qPrintable(words);
        EXPECT_EQ(words.contains(path("d.json")), code != Success) << qPrintable(words);
    }
    EXPECT_EQ(mCapture.LoadDescriptorFile(mFolder.path()), NoSuchFile);
    EXPECT_EQ(mCapture.StartRecording(Text("Check")), Success);
}

TEST_F(PerformanceRecordings, RefuseOperationsOutOfTheirOrder)
{
    EXPECT_EQ(mCapture.StartRecording(Text("Check")), NoDescriptor);
    EXPECT_EQ(load("{'name': 'Check', 'filter': ['wanted']}"), Success);
    EXPECT_EQ(mCapture.StartRecording(Text("Other")), NotItsName);
    EXPECT_EQ(mCapture.CaptureResults(), NotRecording);
    mRing->raise(Text("wanted"));
    EXPECT_EQ(mCapture.StartRecording(Text("Check")), Success);
    EXPECT_EQ(mCapture.StartRecording(Text("Check")), AlreadyRecording);
    EXPECT_EQ(load("{'name': 'Check'}"), AlreadyRecording);
    mRing->raise(Text("unwanted"));
    EXPECT_EQ(mCapture.CaptureResults(), NothingRecorded) << "the wanted event was raised before";
    EXPECT_EQ(mCapture.SaveTestResultJson(path("r.json")), NoResults);
}

TEST_F(PerformanceRecordings, KeepTheLatestEventsThatTheFilterTakes)
{
    const std::tuple<QByteArray, const char*, int, int> rows[] = {
        {"", "i hmi/a/x,i hmi/b,i Hmi/Core/load,i c", 0, 0},
        {", 'filter': ['*/?', 'c']", "i hmi/a/x,i hmi/b,i c", 1, 0},
        {", 'filter': ['h*/*x', '*load*', '?c']", "i hmi/a/x,i Hmi/Core/load", 2, 0},
        {", 'filter': ['hmi/*'], 'limit': 1", "i hmi/b", 2, 1},
        {", 'limit': 3", "i hmi/b,i Hmi/Core/load,i c", 0, 1},
    };
    for (const auto& [keys, events, filteredOut, overLimit] : rows) {
        const QJsonObject trace = recorded("{'name': 'Check'" + keys + "}", "hmi/a/x hmi/b Hmi/Core/load c");
        EXPECT_EQ(eventsOf(trace), events) << keys.constData();
        EXPECT_EQ(trace[Text("otherData")][Text("eventsFilteredOut")], filteredOut) << keys.constData();
        EXPECT_EQ(trace[Text("otherData")][Text("eventsOverLimit")], overLimit) << keys.constData();
    }
}

TEST_F(PerformanceRecordings, HaveSpansThatViewersCanNest)
{
    const char* const rows[][2] = {
        {"AStart BStart BEnd b CStart CEnd AEnd", "X A,X B,i b,X C"},
        {"AStart AStart AEnd AEnd", "X A,X A"},
        {"AStart BStart AEnd", "X A,i BStart"},
        {"AStart BStart AEnd BEnd", "X A,b1 B,e1 B"},
        {"AStart BStart CStart AEnd CEnd BEnd DStart DEnd", "X A,b1 B,b2 C,e2 C,e1 B,X D"},
        {"AStart +AEnd", "b0 A,e0 A'"},
        {"+AStart AStart +AEnd AEnd", "X A',X A"},
        {"AEnd AStart Start End", "i AEnd,i AStart,i Start,i End"},
    };
    for (const auto& [raised, events] : rows)
        EXPECT_EQ(eventsOf(recorded("{'name': 'Check'}", raised)), events) << raised;
}

TEST_F(PerformanceRecordings, GiveMicrosecondsAndSayWhoseTheyAre)
{
    const QJsonArray events =
        recorded("{'name': 'Check'}", "AStart BStart BEnd +x AEnd")[Text("traceEvents")].toArray();
    ASSERT_EQ(events.size(), 6);
    QStringList names;
    for (int index = 0; index < 3; ++index)
        names << events[index][Text("args")][Text("name")].toString();
    // In the order of their ids, which begin anew at times.
    EXPECT_EQ(names.mid(0, 1), QStringList(QCoreApplication::applicationName()));
    EXPECT_TRUE(names.contains(Text("main")) && names.contains(Text("loader")));
    const QVector<Event> raised = mRing->events();
    const std::pair<int, int> spans[] = {{0, 4}, {1, 2}};
    for (const auto& [start, end] : spans) {
        const double begin = events[3 + start][Text("ts")].toDouble();
        EXPECT_NEAR(begin, static_cast<double>(raised[start].nanoseconds) / 1000, 0.001);
        EXPECT_NEAR(begin + events[3 + start][Text("dur")].toDouble(),
                    static_cast<double>(raised[end].nanoseconds) / 1000, 0.001);
    }
}

TEST_F(PerformanceRecordings, SayHowManyEventsTheRingLost)
{
    mRing->raise(Text("before"));
    QByteArray names("0");
    for (int index = 1; index < EventRing::Capacity + 7; ++index)
        names += ' ' + QByteArray::number(index);
    const QJsonObject trace = recorded("{'name': 'Check'}", names);
    EXPECT_EQ(trace[Text("otherData")][Text("eventsOverwritten")], 7);
    EXPECT_EQ(eventsOf(trace).substr(0, 8), "i 7,i 8,");
}

TEST_F(PerformanceRecordings, AreWrittenWholeOrNotAtAll)
{
    recorded("{'name': 'Check'}", "a b c");
    HmiTest::writeFile(mFolder, "r.json", "earlier");
    for (const QString& target : {path("no/r.json"), mFolder.path(), QString(Text("/proc/r.json"))})
        EXPECT_EQ(mCapture.SaveTestResultJson(target), CannotWrite) << qPrintable(target);
    {
        const HmiTest::FullMedium full(100);
        EXPECT_EQ(mCapture.SaveTestResultJson(path("r.json")), CannotWrite);
    }
    EXPECT_EQ(HmiTest::readFile(path("r.json")), "earlier");
    EXPECT_EQ(HmiTest::joined(QDir(mFolder.path()).entryList(QDir::Files)), "d.json,r.json");
}
