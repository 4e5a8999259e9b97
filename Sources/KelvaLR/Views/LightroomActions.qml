pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
import KelvaLR

/// What the user can do about Lightroom and its plug-in, for every place that offers it.
QtObject {
    id: root

    required property SettingsViewModel settings

    readonly property Action installPlugin: Action {
        text: qsTr("Install Lightroom Classic Plugin")
        onTriggered: root.settings.installPlugin()
    }
    readonly property Action openPluginManager: Action {
        text: qsTr("Open Lightroom Plug-in Manager")
        onTriggered: root.settings.openPluginManager()
    }
    readonly property Action revealInstalledPlugin: Action {
        text: qsTr("Reveal Installed Plugin")
        onTriggered: root.settings.revealInstalledPlugin()
    }
    readonly property Action testConnection: Action {
        text: qsTr("Test Lightroom Connection")
        enabled: !root.settings.isTesting
        onTriggered: root.settings.testConnection()
    }
}
