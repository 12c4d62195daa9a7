import QtQuick 2.15
import QtTest 1.15
import Hmi.Core 1.0

TestCase {
    id: checks
    name: "ObjectFactory"

    Component {
        id: rectangle
        Rectangle { required property string label }
    }

    function test_createsFromAComponentAndFromAUrl() {
        const first = ObjectFactory.create(rectangle, checks, { label: "first", width: 7 });
        compare(first.label, "first");
        compare(first.width, 7);
        compare(first.parent, checks);
        first.destroy();
        const second = ObjectFactory.create(Qt.resolvedUrl("data/Label.qml"), checks, { text: "second" });
        compare(second.text, "second");
        second.destroy();
    }

    function test_namesWhatCannotBeCreated() {
        for (const row of [
            { source: Qt.resolvedUrl("data/Missing.qml"), warning: /Missing\.qml: .*No such file/ },
            { source: Qt.resolvedUrl("data/UnknownMember.qml"), warning: /UnknownMember\.qml.*noSuchMember/ },
            { source: null, warning: /it is no component and no URL/ }
        ]) {
            ignoreWarning(row.warning);
            compare(ObjectFactory.create(row.source, checks, {}), null);
        }
    }
}
