import QtTest 1.15
import hmi.shared 1.0

TestCase {
    name: "PhoneNumbers"

    function test_everyOperationTakesAJavaScriptString() {
        compare(PhoneNumberUtility.stripSeparators("+1 (913) p 7"), "+1913p7");
        compare(PhoneNumberUtility.format("913.742.0662"), "(913) 742-0662");
        compare(PhoneNumberUtility.parseNorthAmericanNumberingPlan("1.913 742.0662").areaCode, "913");
    }
}
