pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic

/// A button of the toolbar: one symbol, a background only under the pointer.
AbstractButton {
    id: root

    required property string systemName
    required property string help
    property int symbolSize: 16

    implicitWidth: 32
    implicitHeight: 28
    hoverEnabled: true
    focusPolicy: Qt.TabFocus
    Accessible.role: Accessible.Button
    Accessible.name: root.help
    Accessible.onPressAction: root.clicked()

    contentItem: Item {
        Symbol {
            anchors.centerIn: parent
            name: root.systemName
            size: root.symbolSize
            color: Theme.secondaryText
        }
    }
    background: Rectangle {
        radius: Theme.cellRadius / 2 + 2
        color: root.down ? Theme.controlPressed : root.hovered ? Theme.control : "transparent"

        FocusRing {
            isShown: root.visualFocus
            radius: Theme.cellRadius
        }
    }

    HelpTip {
        visible: root.hovered && !root.down
        text: root.help
    }
}
