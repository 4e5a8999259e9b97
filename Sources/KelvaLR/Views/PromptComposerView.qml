pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
import KelvaLR

/// The bar in which a request is typed: it grows with the text up to five lines, and shows that a request runs.
Rectangle {
    id: root

    required property ConversationViewModel model

    readonly property bool isPromptFocused: field.activeFocus

    signal importRequested

    implicitHeight: row.height + 12
    radius: Math.min(height, 50) / 2
    color: Theme.panel
    border.width: 1
    border.color: field.activeFocus ? Theme.controlPressed : Theme.hairline
    Accessible.role: Accessible.Grouping
    Accessible.name: qsTr("Prompt")

    function focusPrompt(): void {
        field.forceActiveFocus();
    }

    Connections {
        target: root.model

        function onPromptFocusRequested(): void {
            root.focusPrompt();
        }
        function onPromptTextChanged(): void {
            if (field.text !== root.model.promptText) {
                field.text = root.model.promptText;
                field.cursorPosition = field.length;
            }
        }
    }

    Item {
        id: row

        x: 8
        y: 6
        width: parent.width - 16
        height: Math.max(38, flickable.height)

        ComposerIcon {
            id: importButton

            anchors.bottom: parent.bottom
            systemName: "plus"
            help: qsTr("Import Photos")
            onClicked: root.importRequested()
        }
        Flickable {
            id: flickable

            anchors.left: importButton.right
            anchors.right: sendButton.left
            anchors.leftMargin: 12
            anchors.rightMargin: 12
            anchors.verticalCenter: parent.verticalCenter
            height: Math.min(field.implicitHeight, 5 * metrics.lineSpacing + field.topPadding + field.bottomPadding)
            clip: true
            boundsBehavior: Flickable.StopAtBounds
            ScrollBar.vertical: ScrollBar {}

            TextArea.flickable: TextArea {
                id: field

                placeholderText: qsTr("Ask KelvaLR")
                placeholderTextColor: Theme.secondaryText
                color: Theme.text
                selectionColor: Theme.accent
                selectedTextColor: Theme.accentText
                font.pixelSize: Theme.bodySize + 1
                wrapMode: TextEdit.Wrap
                textFormat: TextEdit.PlainText
                leftPadding: 0
                rightPadding: 0
                topPadding: 2
                bottomPadding: 2
                focus: true
                background: null
                onTextChanged: root.model.promptText = text
                Component.onCompleted: text = root.model.promptText
                Keys.onReturnPressed: event => submitOrBreak(event)
                Keys.onEnterPressed: event => submitOrBreak(event)
                KeyNavigation.priority: KeyNavigation.BeforeItem
                KeyNavigation.tab: sendButton
                KeyNavigation.backtab: importButton
                Accessible.role: Accessible.EditableText
                Accessible.name: qsTr("Ask KelvaLR")
                Accessible.multiLine: true

                function submitOrBreak(event: KeyEvent): void {
                    event.accepted = !(event.modifiers & Qt.ShiftModifier);
                    if (event.accepted) {
                        root.model.submitPrompt();
                    }
                }
            }
        }
        ComposerIcon {
            id: sendButton

            anchors.right: parent.right
            anchors.bottom: parent.bottom
            systemName: "paperplane.fill"
            help: qsTr("Send")
            onClicked: root.model.submitPrompt()
        }
    }

    FontMetrics {
        id: metrics

        font: field.font
    }
    Shortcut {
        sequences: ["Ctrl+Return", "Ctrl+Enter"]
        onActivated: root.model.submitPrompt()
    }

    // A request runs.
    Item {
        x: root.radius
        y: root.height - height
        width: root.width - 2 * root.radius
        height: 2
        clip: true
        visible: root.model.isResponding
        Accessible.role: Accessible.ProgressBar
        Accessible.name: qsTr("Working on the request")

        Rectangle {
            id: segment

            width: Theme.isMotionReduced ? parent.width : parent.width / 3
            height: parent.height
            radius: 1
            color: Theme.accent
            opacity: Theme.isMotionReduced ? 0.5 : 1

            NumberAnimation on x {
                from: -segment.width
                to: root.width
                duration: 1400
                loops: Animation.Infinite
                running: root.model.isResponding && !Theme.isMotionReduced
            }
        }
    }
}
