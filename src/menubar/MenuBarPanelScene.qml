import QtQuick
import Zelmo.MenuBar
import Zelmo.Ui

// The panel on its surface, with room around it for the shadow.
Item {
    id: scene

    required property LauncherStore store
    required property MenuBarActions actions
    property real margin: 0
    property alias showsFocus: panel.showsFocus
    property alias animates: panel.animates

    width: panel.width + 2 * scene.margin
    height: panel.height + 2 * scene.margin

    PanelPlateItem {
        objectName: "plate"
        anchors.fill: parent
        margin: scene.margin
    }
    MenuBarPanelView {
        id: panel

        objectName: "panel"
        x: scene.margin
        y: scene.margin
        store: scene.store
        actions: scene.actions
    }
}
