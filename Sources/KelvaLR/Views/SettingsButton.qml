pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic

/// A button across its whole row.
AbstractButton {
    id: root

    property bool isBusy: false

    width: parent.width
    implicitHeight: 34
    hoverEnabled: true
    enabled: !isBusy
    font.pixelSize: Theme.bodySize
    Accessible.role: Accessible.Button
    Accessible.name: text
    Accessible.onPressAction: root.clicked()

    contentItem: Label {
        text: root.text
        font: root.font
        color: Theme.text
        opacity: root.isBusy ? 0.5 : 1
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
