pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
import KelvaLR

/// The artifact area: what the assistant produced, below the tray of imported photos.
Rectangle {
    id: root

    required property ArtifactViewModel artifact

    readonly property bool isEmpty: artifact.photos.count === 0 && artifact.reply === "" && !artifact.hasArtifact

    signal foldersDropped(places: var)

    color: Theme.panel
    Accessible.role: Accessible.Grouping
    Accessible.name: qsTr("Lightroom Output")

    Column {
        id: heading

        x: 6 * Theme.unit
        y: 5 * Theme.unit
        width: parent.width - 2 * x
        spacing: Theme.unit
        bottomPadding: 4 * Theme.unit

        Caption {
            width: parent.width
            text: qsTr("Lightroom Output")
        }
        Label {
            width: parent.width
            text: root.artifact.headerTitle
            color: Theme.text
            font.pixelSize: Theme.thirdTitleSize
            font.weight: Font.DemiBold
            textFormat: Text.PlainText
            elide: Text.ElideRight
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }
    }
    Hairline {
        id: line

        anchors.top: heading.bottom
        width: parent.width
    }
    ListView {
        id: list

        /// Stays at the beginning while what stands above the rows grows, until the user scrolls away.
        property bool isAtBeginning: true
        /// The margin that the place in the list was last set for. Before the list says that its margin has
        /// changed, it moves by itself; that is no scrolling of the user's.
        property real settledMargin: 0

        anchors.top: line.bottom
        anchors.bottom: parent.bottom
        x: heading.x
        width: parent.width - x
        clip: true
        spacing: 10
        topMargin: top.height + top.spacing
        bottomMargin: 6 * Theme.unit
        boundsBehavior: Flickable.StopAtBounds
        model: root.artifact.body
        delegate: MarkdownLine {
            width: ListView.view.width - 6 * Theme.unit
        }
        ScrollBar.vertical: ScrollBar {}
        onContentYChanged: {
            if (topMargin === settledMargin) {
                isAtBeginning = contentY < originY - topMargin + 1;
            }
        }
        onTopMarginChanged: {
            settledMargin = topMargin;
            keepPlace();
        }

        function keepPlace(): void {
            if (isAtBeginning) {
                contentY = originY - topMargin;
            }
        }

        function reveal(from: real, extent: real): void {
            contentY = Math.max(Math.min(contentY, from - spacing), from + extent + spacing - height);
        }

        Connections {
            target: root.artifact

            function onContentReplaced(): void {
                list.isAtBeginning = true;
                list.keepPlace();
            }
        }
    }
    // What stands above the rows scrolls with them. It is no header of the list: in Qt 6.4 a list whose
    // components are bound makes none.
    Column {
        id: top

        parent: list.contentItem
        y: list.originY - list.topMargin
        width: heading.width
        topPadding: 5 * Theme.unit
        spacing: 6 * Theme.unit

        ImportedPhotoGridView {
            width: parent.width
            visible: photos.count > 0
            photos: root.artifact.photos
            viewportY: list.contentY - top.y - y
            viewportHeight: list.height
            onCellReached: cellY => list.reveal(top.y + y + cellY, pitch)
        }
        MessageArtifactView {
            width: parent.width
            visible: content !== ""
            content: root.artifact.reply
        }
        ArtifactDetailView {
            width: parent.width
            visible: root.artifact.hasArtifact
            artifact: root.artifact
        }
    }
    Label {
        anchors.verticalCenter: list.verticalCenter
        x: heading.x
        width: heading.width
        visible: root.isEmpty
        text: qsTr("Type a request, or drop a folder of photos here.")
        color: Theme.secondaryText
        font.pixelSize: Theme.bodySize
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.Wrap
    }

    DropArea {
        id: drop

        anchors.fill: parent
        keys: ["text/uri-list"]
        onEntered: event => event.accepted = root.artifact.canImport(event.urls)
        onDropped: event => {
            root.foldersDropped(event.urls);
            event.acceptProposedAction();
        }

        Rectangle {
            anchors.fill: parent
            anchors.margins: 2 * Theme.unit
            radius: Theme.cellRadius
            color: "transparent"
            border.width: 2
            border.color: Theme.accent
            visible: drop.containsDrag
        }
    }
}
