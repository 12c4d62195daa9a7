#include <gtest/gtest.h>
#include <simulator/signal-service/ScenarioReader.h>
#include <tests/support/FilesAndWaits.h>
#include <tests/support/PrintQt.h>

using namespace Hmi::Simulator;

TEST(ScenarioReader, NamesThePlaceOfAFaultAndWhatIsExpectedThere)
{
    const QByteArray start =
        R"({"signals": [{"path": "D", "type": "double"}, {"path": "T", "type": "string"}], )";
    const auto step = [&](const QByteArray& aStep) {
        return start + R"("steps": [{"at": 0, "path": "D", "value": 1}, {)" + aStep + "}]}";
    };
    const auto ramp = [&](const QByteArray& aRamp) {
        return step(R"("at": 1, "path": "D", "ramp": {)" + aRamp + "}");
    };
    const auto entry = [](const QByteArray& aEntry) { return R"({"signals": [{)" + aEntry + "}]}"; };
    const std::vector<std::pair<QByteArray, const char*>> rows = {
        {"{\n\"steps\": [}", "line 2: "},
        {"[]", "an object is expected around all"},
        {R"({"step": []})", "step: one of the keys signals, steps, loop is expected"},
        {R"({"steps": {}})", "steps: a list of objects is expected"},
        {R"({"steps": [1]})", "steps[0]: an object is expected"},
        {entry(R"("path": "", "type": "int")"), "signals[0].path: the path of a signal that no other"},
        {entry(R"("path": "A", "type": "float")"), "signals[0].type: one of \"int\""},
        {entry(R"("path": "A", "type": "int", "value": 1.5)"),
         "signals[0].value: a value of type int, null or"},
        {entry(R"("path": "A", "type": "bytes", "value": {"bytes": "?"})"),
         "signals[0].value: a value of type bytes"},
        {entry(R"("path": "A", "type": "int", "writable": 1)"), "signals[0].writable: true or false"},
        {entry(R"("path": "A", "type": "string", "value": ")" + QByteArray(250, 'x') + '"'),
         "fits a message of 255"},
        {step(R"("at": -1, "path": "D", "value": 2)"),
         "steps[1].at: a number of seconds from 0 on and at most"},
        {step(R"("at": 1, "path": "X", "value": 2)"), "steps[1].path: the path of an entry in \"signals\""},
        {step(R"("at": 1, "path": "D")"), "steps[1]: either \"value\" or \"ramp\" is expected"},
        {step(R"("at": 1, "path": "D", "value": "fast")"), "steps[1].value: a value of type double"},
        {step(R"("at": 1, "path": "T", "ramp": {})"), "steps[1].ramp: a signal of type int or double"},
        {ramp(R"("from": 0, "to": 1, "during": 0)"), "steps[1].ramp.during: a number of seconds above 0"},
        {ramp(R"("from": 0, "to": "x", "during": 1)"), "steps[1].ramp.to: a number of type double"},
        {ramp(R"("from": 0, "to": 1, "during": 1, "by": 1)"),
         "steps[1].ramp.by: one of the keys from, to, during"},
        {ramp(R"("from": 0, "to": 1, "during": 9e6, "every": 0.1)"),
         "steps[1].ramp.every: a ramp of at most 100000"},
        {step(R"("at": 1, "command": "x", "once": 1)"), "steps[1].once: true or false is expected"},
        {start + R"("steps": [{"at": 2, "path": "D", "value": 1}], "loop": 1})",
         "loop: a time of at least 0.01"}};
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("s.json"));
    for (const auto& [content, message] : rows) {
        HmiTest::writeFile(folder, "s.json", content);
        ScenarioReader reader;
        EXPECT_FALSE(reader.read(file)) << content.constData();
        EXPECT_TRUE(
            reader.getError().startsWith(QStringLiteral("The scenario '%1' is not played: ").arg(file)) &&
            reader.getError().contains(QLatin1String(message)))
            << message << "\n"
            << qPrintable(reader.getError());
    }
}

TEST(ScenarioReader, ReadsTheExampleAndRoundsRampsOfWholeNumbers)
{
    ScenarioReader reader;
    const auto example = reader.read(QStringLiteral(":/scenarios/drive.json"));
    ASSERT_TRUE(example) << qPrintable(reader.getError());
    EXPECT_EQ(example->loop, 60000000);
    const QTemporaryDir folder;
    HmiTest::writeFile(folder, "s.json",
                       R"({"signals": [{"path": "I", "type": "int"}], "steps": [{"at": 1, "path": "I",
        "ramp": {"from": 10, "to": 0, "during": 0.35, "every": 0.1}}, {"at": 1.1, "path": "I", "value": null}]})");
    const auto ramp = reader.read(folder.filePath(QStringLiteral("s.json")));
    ASSERT_TRUE(ramp);
    QStringList steps;
    for (const Scenario::Step& step : ramp->steps)
        steps << QStringLiteral("%1:%2").arg(step.at).arg(step.value ? step.value->toInt() : -1);
    EXPECT_EQ(HmiTest::joined(steps), "1000000:10,1100000:7,1100000:-1,1200000:4,1300000:1,1350000:0");
}
