pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
import KelvaLR

/// One line of an artifact body.
Item {
    id: root

    required property int kind
    required property string richText
    required property bool isContinuation

    readonly property bool isHeading: kind === MarkdownListModel.H1 || kind === MarkdownListModel.H2 || kind === MarkdownListModel.H3
    readonly property var headingSizes: [Theme.titleSize, Theme.secondTitleSize, Theme.thirdTitleSize]
    readonly property real spaceAbove: isContinuation ? 0 : [12, 8, 6][kind] ?? 0
    readonly property real spaceBelow: [4, 2][kind] ?? 0
    readonly property real indent: kind === MarkdownListModel.Numbered ? 12 : kind === MarkdownListModel.Bullet ? marker.implicitWidth + 6 : 0

    implicitHeight: kind === MarkdownListModel.Spacer ? 4 : spaceAbove + body.height + spaceBelow

    Label {
        id: marker

        text: "*"
        visible: root.kind === MarkdownListModel.Bullet && !root.isContinuation
        color: Theme.secondaryText
        font.pixelSize: Theme.bodySize
        font.bold: true
        Accessible.ignored: true
    }
    SelectableText {
        id: body

        x: root.indent
        y: root.spaceAbove
        width: root.width - x
        visible: root.kind !== MarkdownListModel.Spacer
        text: root.richText
        textFormat: TextEdit.RichText
        font.pixelSize: root.isHeading ? root.headingSizes[root.kind] : Theme.bodySize
        font.bold: root.isHeading
    }
}
