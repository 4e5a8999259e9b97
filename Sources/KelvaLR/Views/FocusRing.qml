pragma ComponentBehavior: Bound

import QtQuick

/// The ring around a control that has keyboard focus.
Rectangle {
    required property bool isShown

    anchors.fill: parent
    anchors.margins: -2 * Theme.focusRing
    radius: height / 2
    color: "transparent"
    border.width: Theme.focusRing
    border.color: Theme.accent
    visible: isShown
}
