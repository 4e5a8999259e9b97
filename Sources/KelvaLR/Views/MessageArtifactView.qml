pragma ComponentBehavior: Bound

import QtQuick
import KelvaLR

/// One assistant reply, as plain text.
Column {
    id: root

    required property string content

    spacing: 2 * Theme.unit

    Caption {
        width: parent.width
        text: qsTr("Assistant Response")
    }
    SelectableText {
        id: text

        width: parent.width
        text: root.content
        textFormat: TextEdit.PlainText
        font.pixelSize: Theme.thirdTitleSize
    }
    LineSpacing {
        document: text.textDocument
        distance: 5
    }
}
