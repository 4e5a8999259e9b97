pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic

/// A menu whose items show their shortcuts.
Menu {
    id: root

    padding: 4
    topPadding: 4
    bottomPadding: 4
    implicitWidth: 240
    font.pixelSize: Theme.bodySize - 1

    delegate: MenuItem {
        id: entry

        readonly property string shortcutText: action !== null ? shortcut.nativeText : ""

        implicitHeight: 30
        leftPadding: 10
        rightPadding: 10
        font: root.font
        Accessible.role: Accessible.MenuItem
        Accessible.name: text
        Accessible.onPressAction: entry.action.trigger()

        Shortcut {
            id: shortcut

            enabled: false
            sequence: entry.action !== null ? entry.action.shortcut : ""
        }

        contentItem: Item {
            Label {
                anchors.verticalCenter: parent.verticalCenter
                text: entry.text
                font: entry.font
                color: Theme.text
                Accessible.ignored: true
            }
            Label {
                anchors.verticalCenter: parent.verticalCenter
                anchors.right: parent.right
                text: entry.shortcutText
                font: entry.font
                color: Theme.secondaryText
                Accessible.ignored: true
            }
        }
        background: Rectangle {
            radius: Theme.cellRadius / 2
            color: entry.highlighted ? Theme.control : "transparent"
        }
    }
    background: Rectangle {
        color: Theme.window
        radius: Theme.cellRadius
        border.width: 1
        border.color: Theme.hairline
    }
}
