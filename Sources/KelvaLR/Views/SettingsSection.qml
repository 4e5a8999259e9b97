pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic

/// A titled group of settings.
Column {
    id: root

    required property string title
    default property alias rows: content.data

    spacing: 2 * Theme.unit

    Label {
        text: root.title
        color: Theme.text
        font.pixelSize: Theme.bodySize
        font.weight: Font.DemiBold
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }
    Rectangle {
        width: parent.width
        height: content.height + 24
        radius: Theme.cellRadius
        color: Theme.panel
        border.width: 1
        border.color: Theme.hairline

        Column {
            id: content

            x: 12
            y: 12
            width: parent.width - 24
            spacing: 2 * Theme.unit
        }
    }
}
