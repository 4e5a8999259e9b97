pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic

/// What a control says when the pointer rests on it.
ToolTip {
    id: root

    delay: 600
    padding: 2 * Theme.unit
    font.pixelSize: Theme.smallSize
    enter: Transition {
        NumberAnimation { property: "opacity"; from: 0; to: 1; duration: Theme.quickly }
    }
    contentItem: Label {
        text: root.text
        font: root.font
        color: Theme.window
        Accessible.ignored: true
    }
    background: Rectangle {
        color: Theme.text
        radius: Theme.cellRadius / 2
    }
}
