pragma ComponentBehavior: Bound

import QtQuick

/// The ring in the colour of the voice state; it pulses softly while the microphone is open.
Item {
    id: root

    required property color color
    required property bool isPulsing

    Rectangle {
        id: ring

        anchors.fill: parent
        radius: width / 2
        color: "transparent"
        border.width: 7
        border.color: root.color

        Behavior on border.color {
            ColorAnimation { duration: Theme.quickly }
        }
    }
    SequentialAnimation {
        running: root.isPulsing && !Theme.isMotionReduced
        loops: Animation.Infinite
        onStopped: ring.opacity = 1

        OpacityAnimator { target: ring; to: 0.55; duration: 900; easing.type: Easing.InOutSine }
        OpacityAnimator { target: ring; to: 1; duration: 900; easing.type: Easing.InOutSine }
    }
}
