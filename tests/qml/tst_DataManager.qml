import QtQuick 2.15
import QtTest 1.15
import hmi.shared 1.0

// User data from QML: results, profiles, and that results do not pile up.
TestCase {
    id: checks
    name: "DataManager"

    readonly property string active: DataManager.activeUserProfile

    SignalSpy { id: profileChanged; target: DataManager; signalName: "activeUserProfileChanged" }
    SignalSpy { id: profileReset; target: DataManager; signalName: "activeUserProfileReset" }
    SignalSpy { id: globalChanged; target: DataManager; signalName: "globalSettingChanged" }
    SignalSpy { id: userChanged; target: DataManager; signalName: "userSettingChanged" }

    function error(result) { return result.error; }

    function initTestCase() {
        verify(DataManager.ready);
        verify(!HmiShared.environmentManager.delayStartup);
        DataManager.activeUserProfile = "driver";
        DataManager.deleteUserProfile("Anna");
    }

    function test_everyScopeKeepsEveryTypeThatQmlHas() {
        const values = [["Bool", true], ["Int", 7], ["Double", 0.5], ["String", "Test String Setting Value"]];
        for (const scope of ["Global", "Protected", "User"])
            for (const [type, value] of values) {
                const id = "Check" + type;
                compare(error(DataManager["set" + scope + "Setting"](id, value)), DataManagerReturnTypeQml.DM_OK);
                const result = DataManager["get" + scope + "Setting" + type](id);
                compare([result.error, result.value], [DataManagerReturnTypeQml.DM_OK, value]);
            }
        compare(error(DataManager.getGlobalSettingBool("CheckInt")), DataManagerReturnTypeQml.DM_WRONG_TYPE);
        compare(error(DataManager.getGlobalSettingInt("CheckNone")), DataManagerReturnTypeQml.DM_SETTING_NOT_FOUND);
        compare(error(DataManager.getDefaultSettingValueInt("CheckInt")), DataManagerReturnTypeQml.DM_NO_DEFAULT);
        compare(error(DataManager.setUserSetting("CheckList", [1, 2])), DataManagerReturnTypeQml.DM_WRONG_TYPE);
        compare(DataManager.setUserSetting("CheckInt", 1).value, undefined);
    }

    function test_theActiveProfileIsBound() {
        profileChanged.clear();
        compare(DataManager.getUserProfilesList().value, ["default", "driver"]);
        DataManager.activeUserProfile = "Anna";
        compare([active, profileChanged.count], ["driver", 0]);
        compare(error(DataManager.addNewUserProfile("Anna")), DataManagerReturnTypeQml.DM_OK);
        compare(error(DataManager.addNewUserProfile("Anna")), DataManagerReturnTypeQml.DM_ID_ALREADY_EXISTS);
        DataManager.activeUserProfile = "Anna";
        compare([active, profileChanged.signalArguments[0][0]], ["Anna", "Anna"]);
        compare(error(DataManager.resetActiveUserProfile()), DataManagerReturnTypeQml.DM_OK);
        compare(profileReset.count, 1);
        compare(error(DataManager.deleteUserProfile("Anna")), DataManagerReturnTypeQml.DM_OK);
        compare(active, "driver");
    }

    function test_changesAreToldWhenTheyAreRequested() {
        userChanged.clear();
        DataManager.requestChangeSignalsForSettings(["CheckGlobal", "CheckUser"], "checks");
        DataManager.setGlobalSetting("CheckGlobal", Math.random());
        DataManager.setUserSettingForAllUsers("CheckUser", 1);
        DataManager.setProtectedSetting("CheckUser", 1);
        compare([globalChanged.count, userChanged.count], [1, 1]);
        DataManager.releaseChangeSignalsForSetting("CheckGlobal", "checks");
        compare(error(DataManager.releaseChangeSignalsForSetting("CheckGlobal", "checks")),
                DataManagerReturnTypeQml.DM_SETTING_NOT_FOUND);
        DataManager.setGlobalSetting("CheckGlobal", Math.random());
        compare(globalChanged.count, 1);
    }

    function residentPages() {
        const request = new XMLHttpRequest();
        request.open("GET", "file:///proc/self/statm", false);
        request.send();
        return parseInt(request.responseText.split(" ")[1]);
    }

    function test_resultsAreCollected() {
        // What the engine collects it deletes from the event loop.
        const read = times => {
            for (let i = 1; i <= times; ++i) {
                DataManager.getUserSettingString("CheckString");
                if (i % 5000 === 0)
                    wait(0);
            }
            gc();
            wait(0);
            return residentPages();
        };
        const before = read(20000);
        verify(before > 0);
        // Kept, the results of 100,000 reads would be 40 MB.
        const growth = read(100000) - before;
        verify(growth < 1000, growth);
    }
}
