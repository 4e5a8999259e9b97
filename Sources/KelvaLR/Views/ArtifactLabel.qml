pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic

/// A small label of an artifact; while its work goes on, a dot pulses in it.
Rectangle {
    id: root

    required property string text
    property string symbol: ""
    property bool isBusy: false

    implicitWidth: row.width + 16
    implicitHeight: row.height + 8
    radius: height / 2
    color: Theme.control
    Accessible.role: Accessible.StaticText
    Accessible.name: text

    Row {
        id: row

        anchors.centerIn: parent
        spacing: Theme.unit + 2

        Symbol {
            anchors.verticalCenter: parent.verticalCenter
            visible: root.symbol !== ""
            name: root.symbol
            size: 16
            color: Theme.secondaryText
        }
        Rectangle {
            anchors.verticalCenter: parent.verticalCenter
            visible: root.isBusy
            width: 8
            height: 8
            radius: 4
            color: Theme.accent

            SequentialAnimation on opacity {
                running: root.isBusy && !Theme.isMotionReduced
                loops: Animation.Infinite
                NumberAnimation { to: 0.3; duration: 700 }
                NumberAnimation { to: 1; duration: 700 }
            }
        }
        Label {
            anchors.verticalCenter: parent.verticalCenter
            text: root.text
            color: Theme.secondaryText
            font.pixelSize: Theme.captionSize + 1
            Accessible.ignored: true
        }
    }
}
