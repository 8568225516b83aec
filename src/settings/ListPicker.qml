import QtQuick
import QtQuick.Templates as T
import Zelmo.Settings
import Zelmo.Ui

// Chooses one of a list of titles.
T.ComboBox {
    id: picker

    required property SettingsPalette colors
    required property PickerSetting setting

    implicitWidth: SettingsMetrics.pickerWidth
    implicitHeight: SettingsMetrics.controlHeight
    leftPadding: SettingsMetrics.controlPadding
    rightPadding: 2 * SettingsMetrics.controlPadding + SettingsMetrics.chevronWidth
    font.pixelSize: SettingsMetrics.bodySize
    // The wheel moves the form.
    wheelEnabled: false
    model: picker.setting.rows
    currentIndex: picker.setting.index
    onActivated: index => picker.setting.index = index

    Accessible.role: Accessible.ComboBox
    Accessible.name: picker.setting.title
    Accessible.description: picker.displayText
    Accessible.onPressAction: picker.popup.visible ? picker.popup.close() : picker.popup.open()

    background: Rectangle {
        radius: SettingsMetrics.controlRadius
        color: picker.down ? picker.colors.pressedControl : picker.colors.control
        border.color: picker.colors.controlOutline

        SettingsFocusRing {
            colors: picker.colors
            radius: parent.radius + SettingsMetrics.focusRingGap + SettingsMetrics.focusRingWidth
            visible: picker.visualFocus
        }
    }
    contentItem: SettingsText {
        colors: picker.colors
        text: picker.displayText
        font: picker.font
        wrapMode: Text.NoWrap
        elide: Text.ElideRight
        verticalAlignment: Text.AlignVCenter

        Accessible.ignored: true
    }
    indicator: ChevronItem {
        x: picker.width - width - SettingsMetrics.controlPadding
        y: (picker.height - height) / 2
        width: SettingsMetrics.chevronWidth
        height: SettingsMetrics.chevronHeight
        color: picker.colors.secondaryText
    }
    delegate: T.ItemDelegate {
        id: item

        required property string modelData
        required property int index

        width: ListView.view.width
        implicitHeight: SettingsMetrics.listItemHeight
        leftPadding: 2 * SettingsMetrics.popupPadding + SettingsMetrics.tickSide
        rightPadding: SettingsMetrics.popupPadding
        font.pixelSize: SettingsMetrics.bodySize
        text: item.modelData
        highlighted: picker.highlightedIndex === item.index

        Accessible.role: Accessible.ListItem
        Accessible.name: item.text
        Accessible.selectable: true
        Accessible.selected: picker.currentIndex === item.index
        Accessible.onPressAction: {
            picker.setting.index = item.index;
            picker.popup.close();
        }

        background: Rectangle {
            radius: SettingsMetrics.controlRadius - 1
            color: picker.colors.accent
            visible: item.highlighted
        }
        contentItem: SettingsText {
            colors: picker.colors
            text: item.text
            font: item.font
            color: item.highlighted ? picker.colors.accentText : picker.colors.text
            wrapMode: Text.NoWrap
            elide: Text.ElideRight
            verticalAlignment: Text.AlignVCenter

            Accessible.ignored: true
        }

        SymbolItem {
            x: SettingsMetrics.popupPadding
            y: (item.height - height) / 2
            width: SettingsMetrics.tickSide
            height: width
            name: "checkmark"
            weight: Font.DemiBold
            color: item.highlighted ? picker.colors.accentText : picker.colors.text
            visible: picker.currentIndex === item.index
        }
    }
    popup: T.Popup {
        y: picker.height + SettingsMetrics.popupGap
        width: picker.width
        height: Math.min(implicitHeight, SettingsMetrics.listMaximumRows * SettingsMetrics.listItemHeight + 2 * padding)
        implicitHeight: contentItem.implicitHeight + 2 * padding
        padding: SettingsMetrics.popupPadding
        margins: SettingsMetrics.popupMargin

        background: PopupGround {
            colors: picker.colors
        }
        contentItem: PickerList {
            colors: picker.colors
            model: picker.delegateModel
            currentIndex: picker.highlightedIndex

            Accessible.role: Accessible.List
            Accessible.name: picker.setting.title
        }
    }
}
