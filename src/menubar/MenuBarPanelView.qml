import QtQuick
import Zelmo.MenuBar
import Zelmo.Ui

// What the menu-bar item opens: four buttons and a checkbox.
FocusScope {
    id: panel

    required property LauncherStore store
    required property MenuBarActions actions
    readonly property bool openAtLoginLater: panel.actions.openAtLoginLater
    // Only for whom moves between the controls with keys.
    property bool showsFocus: false
    // Off for users who want less movement.
    property bool animates: true

    width: MenuBarMetrics.panelWidth
    height: rows.height + 2 * MenuBarMetrics.panelVerticalPadding
    focus: true

    Column {
        id: rows

        y: MenuBarMetrics.panelVerticalPadding
        width: parent.width

        PanelSection {
            CapsuleButton {
                objectName: "overlayButton"
                title: panel.actions.overlayTitle
                emphasis: true
                focus: true
                showsFocus: panel.showsFocus
                animates: panel.animates
                onTriggered: panel.actions.toggleOverlay()
            }
        }
        PanelSeparator {}
        PanelSection {
            spacing: MenuBarMetrics.rowSpacing

            CheckboxToggle {
                anchors.horizontalCenter: parent.horizontalCenter
                title: panel.actions.openAtLoginLaterTitle
                isOn: panel.openAtLoginLater
                showsFocus: panel.showsFocus
                onToggled: panel.actions.openAtLoginLater = !panel.openAtLoginLater
            }
            CapsuleButton {
                anchors.horizontalCenter: parent.horizontalCenter
                title: panel.actions.refreshTitle
                showsFocus: panel.showsFocus
                animates: panel.animates
                onTriggered: panel.actions.refresh()
            }
            CapsuleButton {
                anchors.horizontalCenter: parent.horizontalCenter
                title: panel.actions.settingsTitle
                showsFocus: panel.showsFocus
                animates: panel.animates
                onTriggered: panel.actions.showSettings()
            }
        }
        PanelSeparator {}
        PanelSection {
            CapsuleButton {
                title: panel.actions.quitTitle
                isDestructive: true
                showsFocus: panel.showsFocus
                animates: panel.animates
                onTriggered: panel.actions.quit()
            }
        }
    }
}
