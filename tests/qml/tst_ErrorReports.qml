import QtQuick 2.15
import QtTest 1.15
import hmi.shared 1.0

ListView {
    id: view
    width: 200
    height: 200
    model: reports.model
    delegate: Text {
        readonly property bool chosen: selected
        text: `${processName} ${unitId} ${product} ${backtrace.length}`
    }

    ErrorReportModel { id: reports }

    TestCase {
        name: "ErrorReports"
        when: windowShown

        function test_aListShowsThemAndTheUserChooses() {
            compare([reports.getLength(), view.count, reports.model.count], [2, 2, 2]);
            compare(view.itemAtIndex(0).text, "navigation U-0001 Köln 59");
            compare(view.itemAtIndex(1).text, "media U-0001  0");
            for (const choice of [true, false]) {
                reports.model.get(0).selected = choice;
                compare([view.itemAtIndex(0).chosen, view.itemAtIndex(1).chosen], [choice, false]);
            }
        }

        function test_whatCannotBeDoneIsAWarning() {
            const path = reports.model.get(0).path;
            verify(path.endsWith("/tst_ErrorReports/reports/navigation.xml"));
            ignoreWarning(`Could not copy log file ${path} to uploaded folder`);
            reports.copyErrorLog(path);
            ignoreWarning("Could not find log file /none");
            reports.deleteErrorLog("/none");
            compare(reports.getLength(), 2);
        }
    }
}
