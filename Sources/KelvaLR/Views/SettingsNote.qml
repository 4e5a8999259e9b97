pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic

/// A line of small text under a setting.
Label {
    width: parent.width
    color: Theme.secondaryText
    font.pixelSize: Theme.smallSize
    wrapMode: Text.Wrap
    textFormat: Text.PlainText
}
