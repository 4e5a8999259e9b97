pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic

/// A round button with one symbol.
AbstractButton {
    id: root

    required property string systemName
    required property string help

    implicitWidth: 38
    implicitHeight: 38
    hoverEnabled: true
    focusPolicy: Qt.TabFocus
    Accessible.role: Accessible.Button
    Accessible.name: root.help
    Accessible.onPressAction: root.clicked()

    contentItem: Item {
        Symbol {
            anchors.centerIn: parent
            name: root.systemName
        }
    }
    background: Rectangle {
        radius: height / 2
        color: root.down ? Theme.controlPressed : Theme.control
        border.width: 1
        border.color: Theme.hairline

        FocusRing {
            isShown: root.visualFocus
        }
    }

    HelpTip {
        visible: root.hovered && !root.down
        text: root.help
    }
}
