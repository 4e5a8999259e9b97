pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic

/// Text that can be selected and copied, not changed.
TextArea {
    readOnly: true
    selectByMouse: true
    wrapMode: TextEdit.Wrap
    color: Theme.text
    selectionColor: Theme.accent
    selectedTextColor: Theme.accentText
    font.pixelSize: Theme.bodySize
    padding: 0
    leftPadding: 0
    rightPadding: 0
    background: null
    activeFocusOnTab: false
    Accessible.role: Accessible.StaticText
    Accessible.name: getText(0, Math.min(length, 1000))
    Accessible.readOnly: true
}
