pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
import KelvaLR

/// The microphone control, the voice status and the composer, above it what keeps requests from Lightroom.
Rectangle {
    id: root

    required property ConversationViewModel model
    required property SettingsViewModel settings
    required property LightroomHintViewModel lightroomHint

    /// How far the hint is there: the block moves out of its way while it fades in.
    property real hintPresence: lightroomHint.isShown ? 1 : 0

    Behavior on hintPresence {
        NumberAnimation { duration: Theme.quickly; easing.type: Easing.OutCubic }
    }

    signal importRequested

    color: Theme.window

    Column {
        id: block

        readonly property real space: Math.min(620, root.width - 16 * Theme.unit)
        readonly property real floor: composer.y - root.hintPresence * (composer.y - hint.y)

        anchors.horizontalCenter: parent.horizontalCenter
        y: Math.max(8 * Theme.unit, (block.floor - height) / 2)
        width: space
        spacing: 6 * Theme.unit

        MicControlView {
            anchors.horizontalCenter: parent.horizontalCenter
            model: root.model
            availableSpace: block.space
        }
        Column {
            width: parent.width
            spacing: 2 * Theme.unit

            Label {
                width: parent.width
                text: root.model.statusTitle
                color: Theme.text
                font.pixelSize: Theme.largeTitleSize
                font.weight: Font.DemiBold
                horizontalAlignment: Text.AlignHCenter
                elide: Text.ElideRight
                Accessible.role: Accessible.Heading
                Accessible.name: text
            }
            Label {
                width: parent.width
                text: root.model.statusSubtitle
                color: Theme.secondaryText
                font.pixelSize: Theme.bodySize
                horizontalAlignment: Text.AlignHCenter
                wrapMode: Text.Wrap
            }
        }
    }

    LightroomHintView {
        id: hint

        anchors.horizontalCenter: parent.horizontalCenter
        anchors.bottom: composer.top
        anchors.bottomMargin: 3 * Theme.unit
        width: composer.width
        model: root.lightroomHint
        settings: root.settings
        opacity: root.hintPresence
        onDismissed: composer.focusPrompt()
        visible: opacity > 0
    }
    PromptComposerView {
        id: composer

        anchors.horizontalCenter: parent.horizontalCenter
        anchors.bottom: parent.bottom
        anchors.bottomMargin: 6 * Theme.unit
        width: Math.min(620, root.width - 12 * Theme.unit)
        model: root.model
        onImportRequested: root.importRequested()
    }
}
