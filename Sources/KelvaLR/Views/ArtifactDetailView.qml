pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
import KelvaLR

/// The head of one artifact: its title, its kind and its status. The body follows as rows of the list.
Column {
    id: root

    required property ArtifactViewModel artifact

    spacing: 3 * Theme.unit

    Label {
        width: parent.width
        text: root.artifact.title
        color: Theme.text
        font.pixelSize: Theme.largeTitleSize
        font.weight: Font.DemiBold
        wrapMode: Text.Wrap
        maximumLineCount: 4
        elide: Text.ElideRight
        textFormat: Text.PlainText
        Accessible.role: Accessible.Heading
        Accessible.name: text
    }
    Row {
        spacing: 2 * Theme.unit

        ArtifactLabel {
            symbol: root.artifact.kindSymbol
            text: root.artifact.kindTitle
        }
        ArtifactLabel {
            text: root.artifact.statusTitle
            isBusy: root.artifact.isRunning
        }
    }
}
