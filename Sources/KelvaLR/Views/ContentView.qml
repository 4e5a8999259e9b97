pragma ComponentBehavior: Bound

import QtQuick
import KelvaLR

/// The workspace and, when it is expanded, the artifact area.
Item {
    id: root

    required property ConversationViewModel conversation
    required property ArtifactViewModel artifact
    required property SettingsViewModel settings
    required property LightroomHintViewModel lightroomHint
    property bool isArtifactVisible: true

    readonly property real panelWidth: Math.max(412, Math.min(520, 0.37 * width))

    ConversationWorkspaceView {
        anchors.left: parent.left
        anchors.right: panel.left
        height: parent.height
        model: root.conversation
        settings: root.settings
        lightroomHint: root.lightroomHint
        onImportRequested: chooser.open()
    }
    Item {
        id: panel

        x: root.isArtifactVisible ? root.width - width : root.width
        width: root.panelWidth
        height: parent.height
        visible: x < root.width

        Behavior on x {
            enabled: root.isReady
            NumberAnimation { duration: Theme.quickly; easing.type: Easing.OutCubic }
        }

        ArtifactInspectorView {
            anchors.fill: parent
            anchors.leftMargin: divider.width
            artifact: root.artifact
            onFoldersDropped: places => root.conversation.importFolders(places)
        }
        Hairline {
            id: divider

            height: parent.height
        }
    }

    Loader {
        id: chooser

        function open(): void {
            if (status === Loader.Null) {
                setSource("ImportFolderDialog.qml", { currentFolder: root.conversation.picturesFolder });
            }
            const dialog = item as ImportFolderDialog;
            dialog.open();
        }

        active: true

        Connections {
            target: chooser.item as ImportFolderDialog

            function onAccepted(): void {
                const dialog = chooser.item as ImportFolderDialog;
                root.conversation.importFolders([dialog.selectedFolder]);
            }
        }
    }

    property bool isReady: false

    Component.onCompleted: {
        isReady = true;
        conversation.appear();
    }
}
