pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Window

/// A line of one device pixel; the side it is given decides whether it runs across or down.
Rectangle {
    readonly property real thickness: Theme.hairlineWidth(Screen.devicePixelRatio)

    implicitWidth: thickness
    implicitHeight: thickness
    color: Theme.hairline
    Accessible.ignored: true
}
