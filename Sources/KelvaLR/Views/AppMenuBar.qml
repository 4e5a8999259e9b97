pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic

/// The menu titles, on the window's own background.
MenuBar {
    id: root

    padding: 0
    font.pixelSize: Theme.bodySize - 1
    background: null

    delegate: MenuBarItem {
        id: entry

        padding: 6
        leftPadding: 10
        rightPadding: 10
        font: root.font
        Accessible.role: Accessible.MenuItem
        Accessible.name: text
        Accessible.onPressAction: entry.triggered()

        contentItem: Label {
            text: entry.text
            font: entry.font
            color: Theme.text
            Accessible.ignored: true
        }
        background: Rectangle {
            radius: Theme.cellRadius / 2
            color: entry.highlighted || entry.hovered ? Theme.control : "transparent"
        }
    }
}
