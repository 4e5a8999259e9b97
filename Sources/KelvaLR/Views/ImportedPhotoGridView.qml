pragma ComponentBehavior: Bound

import QtQuick
import KelvaLR

/// The tray: all imported photos in a grid as tall as they need. Only the cells in sight exist: the grid itself
/// is no taller than the viewport and moves along with it.
Item {
    id: root

    required property ImportedPhotoListModel photos
    /// Where the viewport of the surrounding view begins, in this item's coordinates, and how tall it is.
    required property real viewportY
    required property real viewportHeight

    readonly property int pitch: 74
    readonly property int columns: Math.max(1, Math.floor((width + 10) / pitch))
    readonly property real gridHeight: Math.ceil(photos.count / columns) * pitch - 10

    /// The keyboard has moved to a cell; `cellY` is its place in this item's coordinates.
    signal cellReached(cellY: real)

    implicitHeight: grid.y + gridHeight

    Caption {
        id: caption

        text: qsTr("Imported Photos")
        width: parent.width
    }
    Item {
        id: grid

        y: caption.height + 2 * Theme.unit
        width: parent.width
        height: root.gridHeight

        FocusRing {
            anchors.fill: undefined
            x: cells.currentIndex % root.columns * root.pitch - 4
            y: Math.floor(cells.currentIndex / root.columns) * root.pitch - 4
            width: 72
            height: 72
            radius: Theme.cellRadius + 4
            isShown: cells.activeFocus && cells.currentIndex >= 0
        }
        HelpTip {
            id: tip

            property Item hoveredCell: null

            parent: hoveredCell
            visible: hoveredCell !== null
            text: qsTr("Remove from tray")
        }
        GridView {
            id: cells

            readonly property real limit: Math.max(0, grid.height + 10 - height)

            y: Math.max(0, Math.min(root.viewportY - grid.y, limit))
            width: root.columns * root.pitch
            height: Math.min(root.viewportHeight + root.pitch, grid.height + 10)
            contentY: y
            interactive: false
            cellWidth: root.pitch
            cellHeight: root.pitch
            cacheBuffer: 2 * root.pitch
            reuseItems: true
            model: root.photos
            keyNavigationEnabled: true
            highlightFollowsCurrentItem: false // it would move the grid, which follows the viewport
            activeFocusOnTab: true
            Keys.onSpacePressed: event => root.photos.select(currentIndex, event.modifiers)
            Keys.onReturnPressed: event => root.photos.select(currentIndex, event.modifiers)
            Keys.onDeletePressed: root.photos.remove(currentIndex)
            onCurrentIndexChanged: {
                if (activeFocus) {
                    root.cellReached(grid.y + Math.floor(currentIndex / root.columns) * root.pitch);
                }
            }
            Accessible.role: Accessible.List
            Accessible.name: qsTr("Imported Photos")

            delegate: ImportedPhotoThumbnail {
                id: cell

                required property int index

                isCurrent: GridView.isCurrentItem && cells.activeFocus
                // Qt 6.4 only stops drawing a cell whose photo is gone or out of sight: it would still be found.
                GridView.onPooled: visible = false
                GridView.onRemove: visible = false
                GridView.onReused: visible = true
                onChosen: modifiers => {
                    cells.currentIndex = cell.index;
                    root.photos.select(cell.index, modifiers);
                }
                onRemoved: root.photos.remove(cell.index)
                onRemoveHovered: isHovered => tip.hoveredCell = isHovered ? cell : null
            }
        }
    }
}
