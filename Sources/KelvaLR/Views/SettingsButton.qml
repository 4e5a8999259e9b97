pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic

/// A button that says in words what it does, across its whole row unless it is given a width.
AbstractButton {
    id: root

    width: parent.width
    implicitWidth: contentItem.implicitWidth + 6 * Theme.unit
    implicitHeight: 34
    hoverEnabled: true
    font.pixelSize: Theme.bodySize
    Accessible.role: Accessible.Button
    Accessible.name: text
    Accessible.onPressAction: root.action ? root.action.trigger() : root.clicked()

    contentItem: Label {
        text: root.text
        font: root.font
        color: Theme.text
        opacity: root.enabled ? 1 : 0.5
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        elide: Text.ElideRight
        Accessible.ignored: true
    }
    background: Rectangle {
        radius: Theme.cellRadius
        color: root.down || root.hovered ? Theme.controlPressed : Theme.control

        FocusRing {
            isShown: root.visualFocus
            radius: Theme.cellRadius + 4
        }
    }
}
