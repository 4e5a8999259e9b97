pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic

/// A small heading in capitals.
Label {
    color: Theme.secondaryText
    font.pixelSize: Theme.captionSize
    font.weight: Font.DemiBold
    font.capitalization: Font.AllUppercase
    font.letterSpacing: 0.6
    elide: Text.ElideRight
    Accessible.role: Accessible.Heading
    Accessible.name: text
}
