pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
import QtQuick.Layouts
import KelvaLR

/// The preferences and the Lightroom plug-in, in three sections.
Column {
    id: root

    required property SettingsViewModel model

    /// Puts the keyboard on the setting, ringed.
    function pointOutComputerControl(): void {
        computerControl.forceActiveFocus();
        computerControl.isPointedOut = true;
    }

    width: 440
    padding: 20
    spacing: 6 * Theme.unit

    LightroomActions {
        id: actions

        settings: root.model
    }
    SettingsSection {
        width: root.width - 2 * root.padding
        title: qsTr("Conversation")

        SettingsToggle {
            text: qsTr("Start in Quiet Mode")
            checked: root.model.startInQuietMode
            onToggled: root.model.startInQuietMode = checked
        }
        SettingsToggle {
            text: qsTr("Read Responses Aloud")
            checked: root.model.readResponsesAloud
            onToggled: root.model.readResponsesAloud = checked
        }
    }
    SettingsSection {
        width: root.width - 2 * root.padding
        title: qsTr("Permissions")

        SettingsToggle {
            id: computerControl

            text: qsTr("Allow Computer Control")
            checked: root.model.allowComputerControl
            onToggled: root.model.allowComputerControl = checked
        }
        SettingsNote {
            text: qsTr("Lightroom control uses the KelvaLR Lightroom Classic plugin and may require macOS Accessibility permission for local UI commands.")
        }
    }
    SettingsSection {
        width: root.width - 2 * root.padding
        title: qsTr("Adobe Lightroom Classic Integration")

        RowLayout {
            width: parent.width
            spacing: 2 * Theme.unit

            Label {
                Layout.fillWidth: true
                text: qsTr("Connection Status")
                color: Theme.text
                font.pixelSize: Theme.bodySize
            }
            Rectangle {
                implicitWidth: 8
                implicitHeight: 8
                radius: 4
                color: root.model.isPluginConnected ? Theme.success : Theme.failure
            }
            Label {
                text: root.model.isPluginConnected ? qsTr("Connected") : qsTr("Disconnected")
                color: Theme.text
                font.pixelSize: Theme.bodySize
            }
        }
        SettingsButton {
            action: actions.installPlugin
        }
        SettingsButton {
            action: actions.openPluginManager
        }
        SettingsButton {
            action: actions.revealInstalledPlugin
        }
        SettingsButton {
            action: actions.testConnection
        }
        SettingsNote {
            text: root.model.resultText
            color: ({
                    "note": Theme.secondaryText,
                    "success": Theme.success,
                    "failure": Theme.failure
                })[root.model.resultTone]
        }
    }
}
