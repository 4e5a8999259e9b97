pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Controls.Basic

/// The line between two groups of menu items.
MenuSeparator {
    padding: 6
    topPadding: 3
    bottomPadding: 3
    contentItem: Hairline {}
}
