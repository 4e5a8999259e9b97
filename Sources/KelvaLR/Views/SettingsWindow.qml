pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
import KelvaLR

/// The settings, in a window of their own that is as large as they are.
ApplicationWindow {
    id: root

    required property SettingsViewModel model

    width: view.implicitWidth
    height: view.implicitHeight
    minimumWidth: width
    maximumWidth: width
    minimumHeight: height
    maximumHeight: height
    title: qsTr("KelvaLR Settings")
    color: Theme.window
    font.family: Theme.fontFamily

    function pointOutComputerControl(): void {
        view.pointOutComputerControl();
    }

    Shortcut {
        sequences: ["Escape", "Ctrl+W"]
        onActivated: root.close()
    }
    SettingsView {
        id: view

        model: root.model
    }
}
