pragma ComponentBehavior: Bound

import QtQuick.Dialogs

/// The folder chooser, made when it is first needed.
FolderDialog {
    title: qsTr("Choose a folder to import into Lightroom Classic.")
    acceptLabel: qsTr("Import Photos")
}
