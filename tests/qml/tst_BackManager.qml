import QtQuick 2.15
import QtTest 1.15
import hmi.shared 1.0

TestCase {
    name: "BackManager"
    // In the running event loop, without which nothing is destroyed.
    when: windowShown

    property var asked: []

    function handler(tag, consumes) {
        return () => {
            asked.push(tag);
            return consumes;
        };
    }

    function init() {
        asked = [];
        compare(BackManager.depth, 0);
    }

    function test_theTopOneThatConsumesEndsTheRequest() {
        const bottom = handler("bottom", true);
        const middle = handler("middle", true);
        const top = handler("top", false);
        [bottom, middle, top].forEach(one => BackManager.push(one));
        verify(BackManager.back());
        compare(asked, ["top", "middle"]);
        BackManager.push(bottom);
        compare(BackManager.depth, 3);
        asked = [];
        BackManager.back();
        compare(asked, ["bottom"]);
        [bottom, middle, top].forEach(one => BackManager.remove(one));
        verify(!BackManager.back());
    }

    function test_aHandlerMayRemoveItselfAndOthersWhileAsked() {
        const below = handler("below", true);
        const top = () => {
            BackManager.remove(top);
            BackManager.remove(below);
            return false;
        };
        BackManager.push(below);
        BackManager.push(top);
        verify(!BackManager.back());
        compare(asked, []);
    }

    Component {
        id: dialog
        QtObject { function back() { return true; } }
    }

    function test_aDestroyedObjectDropsOut() {
        const object = dialog.createObject(this);
        BackManager.push(object);
        verify(BackManager.back());
        object.destroy();
        tryCompare(BackManager, "depth", 0);
        verify(!BackManager.back());
    }

    function test_whatIsNoHandlerIsRefused() {
        ignoreWarning("BackManager: a handler must be a function or an object with a function back().");
        BackManager.push({});
        compare(BackManager.depth, 0);
    }
}
