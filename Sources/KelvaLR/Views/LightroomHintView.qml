pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
import KelvaLR

/// Says why requests cannot reach Lightroom, and offers what helps.
Rectangle {
    id: root

    required property LightroomHintViewModel model
    required property SettingsViewModel settings

    signal dismissed

    implicitHeight: column.y + column.height + 3 * Theme.unit
    radius: Theme.cellRadius
    color: Theme.panel
    border.width: 1
    border.color: Theme.hairline
    Accessible.role: Accessible.Notification
    Accessible.name: model.finding
    Accessible.description: model.advice

    LightroomActions {
        id: actions

        readonly property Action openLightroom: Action {
            text: qsTr("Open Lightroom")
            onTriggered: root.model.openLightroom()
        }

        settings: root.settings
    }
    Rectangle {
        x: 4 * Theme.unit
        y: column.y + (finding.height - height) / 2
        width: 8
        height: 8
        radius: 4
        color: Theme.attention
    }
    Column {
        id: column

        x: 8 * Theme.unit
        y: 3 * Theme.unit
        width: close.x - x - 2 * Theme.unit
        spacing: Theme.unit

        Label {
            id: finding

            width: parent.width
            text: root.model.finding
            textFormat: Text.PlainText
            color: Theme.text
            font.pixelSize: Theme.bodySize
            wrapMode: Text.Wrap
            maximumLineCount: 2
            elide: Text.ElideRight
        }
        Label {
            width: parent.width
            text: root.model.advice
            textFormat: Text.PlainText
            color: Theme.secondaryText
            font.pixelSize: Theme.bodySize
            wrapMode: Text.Wrap
            maximumLineCount: 2
            elide: Text.ElideRight
        }
        Row {
            topPadding: 2 * Theme.unit
            spacing: 2 * Theme.unit
            visible: root.model.actions.length > 0

            Repeater {
                model: root.model.actions

                SettingsButton {
                    required property string modelData

                    width: implicitWidth
                    action: actions[modelData]
                }
            }
        }
    }
    ToolbarIcon {
        id: close

        anchors.right: parent.right
        anchors.rightMargin: 2 * Theme.unit
        y: 2 * Theme.unit
        systemName: "xmark"
        symbolSize: 13
        help: qsTr("Dismiss")
        onClicked: {
            root.model.dismiss();
            root.dismissed();
        }
    }
}
