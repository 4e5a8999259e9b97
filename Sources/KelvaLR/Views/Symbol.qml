pragma ComponentBehavior: Bound

import QtQuick

/// One symbol of the set in one colour, sharp on every screen.
Image {
    id: root

    required property string name
    property color color: Theme.text
    property int size: 14

    width: size
    height: size
    sourceSize.width: size // the toolkit asks for as many device pixels as the screen has
    sourceSize.height: size
    source: name === "" ? "" : "image://icon/" + name + "/" + color.toString().slice(1)
    Accessible.ignored: true
}
