#include <hmi/shared/application/MeasurementRecording.h>

#include <QDir>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#include <stdexcept>
#include <tuple>
#include <utility>

#include <hmi/shared/application/PerfEventPolicyMetron.h>
#include <tests/support/ExpectedMessages.h>
#include <tests/support/FilesAndWaits.h>

using Hmi::Shared::MeasurementRecording;
using Text = QLatin1String;

static QStringList sInfos;
static QtMessageHandler sPrevious = nullptr;

static void collectInfos(QtMsgType aType, const QMessageLogContext& aContext, const QString& aText)
{
    if (aType == QtInfoMsg)
        sInfos.append(Text(aContext.category) + Text(" ") + aText);
    else
        sPrevious(aType, aContext, aText);
}

class MeasurementRecordings : public testing::Test
{
protected:
    void SetUp() override { sPrevious = qInstallMessageHandler(&collectInfos); }
    void TearDown() override { qInstallMessageHandler(sPrevious); }

    /** The infos since the last call. */
    std::string infos() { return HmiTest::joined(std::exchange(sInfos, {})); }

    const QTemporaryDir mFolder;
    Hmi::Shared::PerfEventPolicyMetron mPolicy;
    MeasurementRecording mRecording{mFolder.path(), mPolicy.getEventRing()};
};

TEST_F(MeasurementRecordings, AreMadeWhenTheirDescriptorIsThere)
{
    const char* const rows[][2] = {{"Startup", "startup"}, {"Shutdown", "shutdown"}};
    infos();
    for (const auto& [phase, lower] : rows) {
        const QByteArray name = QByteArray("Application") + phase;
        const std::string file = mFolder.filePath(Text(name)).toStdString();
        const std::string checking =
            std::string("hmi.shared Checking for ") + lower + " measurement descriptor: " + file + ".json";
        const std::string begun = std::string(",hmi.shared metronBegin") + phase + "Recording";
        const std::string saving =
            std::string("hmi.shared metronEnd") + phase + "Recording saving to: " + file + "_res.json";
        EXPECT_FALSE(mRecording.begin(Text(name)));
        mRecording.end();
        EXPECT_EQ(infos(), checking);
        HmiTest::writeFile(mFolder, name + ".json", "{\"name\": \"" + name + "\"}");
        EXPECT_TRUE(mRecording.begin(Text(name)));
        EXPECT_EQ(infos(), checking + begun);
        mPolicy.raiseEvent(Text(phase));
        EXPECT_TRUE(mRecording.begin(Text(name))) << "ends the one that runs";
        EXPECT_EQ(infos(), saving + "," + checking + begun);
        EXPECT_TRUE(HmiTest::readFile(mFolder.filePath(Text(name + "_res.json"))).contains(phase));
        mPolicy.raiseEvent(Text("again"));
        mRecording.end();
        mRecording.end();
        EXPECT_EQ(infos(), saving);
    }
}

TEST_F(MeasurementRecordings, WarnWithTheCodeAndSayTheReason)
{
    const QString file = mFolder.filePath(Text("ApplicationShutdown"));
    ASSERT_TRUE(QDir().mkpath(file + Text("_res.json")));
    const std::tuple<QByteArray, bool, const char*, const char*> rows[] = {
        {"{", false, "LoadDescriptorFile (%1.json) returned: 4", "is no JSON object"},
        {"{\"name\": \"Other\"}", false, "StartRecording returned: 11", "'Other'"},
        {"{\"name\": \"ApplicationShutdown\", \"filter\": [\"y\"]}", true,
         "Error capturing shutdown results: 21", "check its filter"},
        {"{\"name\": \"ApplicationShutdown\"}", true, "SaveTestResultJson(%1_res.json) returned: 31",
         "is not written"},
    };
    for (const auto& [content, begins, warning, reason] : rows) {
        HmiTest::writeFile(mFolder, "ApplicationShutdown.json", content);
        HmiTest::expectWarning(QString(Text(warning)).replace(Text("%1"), file));
        EXPECT_EQ(mRecording.begin(Text("ApplicationShutdown")), begins);
        mPolicy.raiseEvent(Text("x"));
        mRecording.end();
        EXPECT_NE(infos().find(reason), std::string::npos) << reason;
    }
}

TEST_F(MeasurementRecordings, GoOnWithoutAMeasurementDirectory)
{
    constexpr const char* variable = "KORVEX_UNIT_TEST_RW_PATH";
    const QByteArray before = qgetenv(variable);
    HmiTest::writeFile(mFolder, "file", "");
    HmiTest::expectMessageMatching(QtWarningMsg, QStringLiteral(".*file/metron cannot be made.*"));
    for (const char* name : {"state/metron", "file/metron"}) {
        const QString path = mFolder.filePath(Text(name));
        MeasurementRecording recording(QDir::current().relativeFilePath(path), mPolicy.getEventRing());
        recording.prepare();
        EXPECT_EQ(QDir(path).exists(), path.contains(Text("state")));
        EXPECT_EQ(qEnvironmentVariable(variable), path);
        EXPECT_FALSE(recording.begin(Text("ApplicationStartup")));
    }
    before.isNull() ? qunsetenv(variable) : qputenv(variable, before);
}

TEST_F(MeasurementRecordings, SurviveAnExceptionOfTheLibrary)
{
    HmiTest::expectWarning(Text("Metron threw an exception:out of events"));
    EXPECT_FALSE(MeasurementRecording::attempt([]() -> bool { throw std::runtime_error("out of events"); }));
}
