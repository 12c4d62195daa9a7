pragma Singleton
import QtQml 2.15

/*! Tells the user something in passing: Notice.show(qsTr("...")), from any screen. */
QtObject {
    signal shown(string text)

    function show(text) { shown(text) }
}
