pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic

/// A switch with its text, across the whole row.
Switch {
    id: root

    /// The user is led here: ringed although the keyboard did not come by the Tab key.
    property bool isPointedOut: false

    onActiveFocusChanged: isPointedOut = isPointedOut && activeFocus
    width: parent.width
    leftPadding: 0
    rightPadding: 0
    topPadding: 4
    bottomPadding: 4
    font.pixelSize: Theme.bodySize
    Accessible.role: Accessible.CheckBox
    Accessible.name: text
    Accessible.checkable: true
    Accessible.checked: checked
    Accessible.onPressAction: press()
    Accessible.onToggleAction: press()

    function press(): void {
        toggle();
        toggled();
    }

    indicator: Rectangle {
        x: root.width - width
        y: (root.height - height) / 2
        implicitWidth: 38
        implicitHeight: 22
        radius: height / 2
        color: root.checked ? Theme.accent : Theme.controlPressed

        Behavior on color {
            ColorAnimation { duration: Theme.quickly }
        }

        Rectangle {
            x: 2 + root.visualPosition * (parent.width - width - 4)
            y: 2
            width: 18
            height: 18
            radius: 9
            color: Theme.accentText

            Behavior on x {
                NumberAnimation { duration: Theme.quickly; easing.type: Easing.OutCubic }
            }
        }
        FocusRing {
            isShown: root.visualFocus || root.isPointedOut
        }
    }
    contentItem: Label {
        text: root.text
        font: root.font
        color: Theme.text
        verticalAlignment: Text.AlignVCenter
        rightPadding: 50
        elide: Text.ElideRight
        Accessible.ignored: true
    }
}
