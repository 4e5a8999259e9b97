pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
import KelvaLR

/// The main window: menus and the artifact button in one row, the content below.
ApplicationWindow {
    id: root

    required property ConversationViewModel conversation
    required property ArtifactViewModel artifact
    required property SettingsViewModel settings
    required property LightroomHintViewModel lightroomHint
    required property AppearanceViewModel appearance

    x: Screen.virtualX + (Screen.width - minimumWidth) / 2
    y: Screen.virtualY + (Screen.height - minimumHeight) / 2
    width: minimumWidth
    height: minimumHeight
    minimumWidth: 1120
    minimumHeight: 720 + header.height
    title: qsTr("KelvaLR")
    color: Theme.window
    font.family: Theme.fontFamily

    Binding {
        target: Theme
        property: "isDark"
        value: root.appearance.isDark
    }
    Binding {
        target: Theme
        property: "isMotionReduced"
        value: root.appearance.isMotionReduced
    }

    header: Item {
        implicitHeight: 41

        AppMenuBar {
            x: 8
            anchors.verticalCenter: parent.verticalCenter

            AppMenu {
                id: fileMenu

                title: qsTr("File")

                Action {
                    text: qsTr("New Session")
                    shortcut: "Ctrl+N"
                    onTriggered: root.conversation.startNewSession()
                }
                Action {
                    text: qsTr("Settings...")
                    shortcut: "Ctrl+,"
                    onTriggered: settingsLoader.open()
                }
                AppMenuSeparator {}
                Action {
                    text: qsTr("Quit")
                    shortcut: "Ctrl+Q"
                    onTriggered: Qt.quit()
                }
            }
            AppMenu {
                title: qsTr("Assistant")

                Action {
                    text: qsTr("Focus Prompt")
                    shortcut: "Ctrl+L"
                    onTriggered: root.conversation.focusPrompt()
                }
                AppMenuSeparator {}
                Action {
                    text: qsTr("Enable Voice")
                    shortcut: "Shift+Ctrl+V"
                    onTriggered: root.conversation.enableVoice()
                }
                Action {
                    text: qsTr("Enable Quiet")
                    shortcut: "Shift+Ctrl+Q"
                    onTriggered: root.conversation.enableQuiet()
                }
            }
        }
        ToolbarIcon {
            anchors.right: parent.right
            anchors.rightMargin: 8
            anchors.verticalCenter: parent.verticalCenter
            systemName: content.isArtifactVisible ? "arrow.down.right.and.arrow.up.left" : "arrow.up.left.and.arrow.down.right"
            help: content.isArtifactVisible ? qsTr("Collapse Artifact") : qsTr("Expand Artifact")
            onClicked: content.isArtifactVisible = !content.isArtifactVisible
        }
        Hairline {
            anchors.bottom: parent.bottom
            width: parent.width
        }
    }

    Shortcut {
        sequence: "F10"
        onActivated: fileMenu.open()
    }
    ContentView {
        id: content

        anchors.fill: parent
        conversation: root.conversation
        artifact: root.artifact
        settings: root.settings
        lightroomHint: root.lightroomHint
    }

    Loader {
        id: settingsLoader

        function open(): void {
            if (status === Loader.Null) {
                setSource("SettingsWindow.qml", { model: root.settings, transientParent: root });
            }
            root.settings.reread();
            const window = item as SettingsWindow;
            window.x = root.x + (root.width - window.width) / 2;
            window.y = root.y + (root.height - window.height) / 2;
            window.show();
            window.raise();
            window.requestActivate();
        }

        Connections {
            target: root.settings

            function onComputerControlAsked(): void {
                settingsLoader.open();
                (settingsLoader.item as SettingsWindow).pointOutComputerControl();
            }
        }
    }
}
