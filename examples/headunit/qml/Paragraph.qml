import QtQuick 2.15
import "controls"

/*! Words that wrap. */
Words {
    elide: Text.ElideNone
    wrapMode: Text.Wrap
}
