import QtQuick

/// One cell of the tray. A screenful of cells comes into sight within a frame, so it is made of few and light
/// items; the focus ring and the help text are the tray's. The component here is not bound: in Qt 6.4 a Loader cannot
/// make one that is.
Item {
    id: root

    required property string displayName
    required property url thumbnail
    required property bool isSelected
    /// Keyboard focus is on this cell.
    required property bool isCurrent

    signal chosen(modifiers: int)
    signal removed
    /// The pointer has come over the remove button, or has left it.
    signal removeHovered(isHovered: bool)

    implicitWidth: 64
    implicitHeight: 64
    Accessible.role: Accessible.CheckBox
    Accessible.name: root.displayName
    Accessible.checkable: true
    Accessible.checked: root.isSelected
    Accessible.focused: root.isCurrent
    Accessible.onPressAction: root.chosen(Qt.ControlModifier)
    Accessible.onToggleAction: root.chosen(Qt.ControlModifier)

    Rectangle {
        anchors.fill: parent
        radius: Theme.cellRadius
        color: Theme.control

        Symbol {
            anchors.centerIn: parent
            name: "photo"
            size: 22
            color: Theme.secondaryText
        }
    }
    // Covers the symbol, unless the file shows nothing: then it is transparent.
    Image {
        anchors.fill: parent
        source: root.thumbnail
        sourceSize.width: 64
        sourceSize.height: 64
        asynchronous: true
        cache: false
        Accessible.ignored: true
    }
    Rectangle {
        anchors.fill: parent
        radius: Theme.cellRadius
        color: "transparent"
        border.width: root.isSelected ? 3 : 1
        border.color: root.isSelected ? Theme.accent : Theme.hairline
    }
    Loader {
        x: 4
        y: 4
        active: root.isSelected
        sourceComponent: Rectangle {
            width: 17
            height: 17
            radius: height / 2
            color: Theme.accent

            Symbol {
                anchors.centerIn: parent
                name: "checkmark"
                size: 11
                color: Theme.accentText
            }
        }
    }
    MouseArea {
        readonly property bool isOverRemove: containsMouse && mouseX >= remove.x && mouseY <= remove.y + remove.height

        anchors.fill: parent
        hoverEnabled: true
        onIsOverRemoveChanged: root.removeHovered(isOverRemove)
        onClicked: mouse => {
            if (isOverRemove) {
                root.removed();
            } else {
                root.chosen(mouse.modifiers);
            }
        }
    }
    Rectangle {
        id: remove

        anchors.right: parent.right
        anchors.top: parent.top
        anchors.margins: 4
        width: 17
        height: 17
        radius: height / 2
        color: Theme.scrim
        Accessible.role: Accessible.Button
        Accessible.name: qsTr("Remove %1 from tray").arg(root.displayName)
        Accessible.onPressAction: root.removed()

        Symbol {
            anchors.centerIn: parent
            name: "xmark"
            size: 9
            color: Theme.accentText
        }
    }
}
