pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic
import KelvaLR

/// The large round control that starts or ends the voice session and shows its state by colour.
AbstractButton {
    id: root

    required property ConversationViewModel model
    required property real availableSpace

    readonly property real diameter: Math.max(220, Math.min(310, 0.52 * availableSpace))
    readonly property color stateColor: Theme.voiceColors[model.voiceState]

    implicitWidth: diameter
    implicitHeight: diameter
    hoverEnabled: true
    focusPolicy: Qt.TabFocus
    onClicked: model.startComputerUseVoiceMode()
    Accessible.role: Accessible.Button
    Accessible.name: model.microphoneHelp
    Accessible.description: model.statusTitle
    Accessible.onPressAction: root.clicked()

    containmentMask: QtObject {
        function contains(point: point): bool {
            const x = point.x - root.width / 2;
            const y = point.y - root.height / 2;
            return x * x + y * y <= root.diameter * root.diameter / 4;
        }
    }

    contentItem: Item {
        Symbol {
            anchors.centerIn: parent
            name: "mic.fill"
            size: Math.round(0.3 * root.diameter)
            color: root.stateColor
        }
    }
    background: Item {
        MicRing {
            anchors.fill: parent
            color: root.stateColor
            isPulsing: root.model.voiceState === "recording"
        }
        Rectangle {
            anchors.fill: parent
            anchors.margins: 10
            radius: width / 2
            color: root.down ? Theme.control : Theme.window
            border.width: 1
            border.color: Theme.hairline
        }
        FocusRing {
            isShown: root.visualFocus
        }
    }

    HelpTip {
        visible: root.hovered && !root.down
        text: root.model.microphoneHelp
    }
}
