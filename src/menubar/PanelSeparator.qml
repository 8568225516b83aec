import QtQuick
import Zelmo.MenuBar

// A line with the space around it.
Item {
    width: parent.width
    height: MenuBarMetrics.separatorHeight + 2 * MenuBarMetrics.separatorPadding

    Accessible.role: Accessible.Separator

    Rectangle {
        objectName: "line"
        y: MenuBarMetrics.separatorPadding
        width: parent.width
        height: MenuBarMetrics.separatorHeight
        color: MenuBarMetrics.separatorColor
    }
}
