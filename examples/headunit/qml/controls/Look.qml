pragma Singleton
import QtQml 2.15
import QtQuick 2.15
import Hmi.Core 1.0

/*! How the theme in effect looks: its colours, and the sizes that all themes share, in pixels. */
QtObject {
    readonly property color background: _theme.object.background
    readonly property color surface: _theme.object.surface
    readonly property color raised: _theme.object.raised
    readonly property color text: _theme.object.text
    readonly property color faintText: _theme.object.faintText
    readonly property color accent: _theme.object.accent
    /*! On the accent. */
    readonly property color accentText: _theme.object.accentText
    readonly property color warning: _theme.object.warning

    readonly property int fontSmall: 16
    readonly property int font: 20
    readonly property int fontLarge: 28
    readonly property int fontHuge: 64
    readonly property int spacing: 12
    readonly property int rowHeight: 48
    readonly property int radius: 8

    readonly property HandleDefaultsResource _theme: HandleDefaultsResource { resourceId: "HEADUNIT_LOOK" }
}
