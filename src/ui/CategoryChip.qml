import QtQuick
import Zelmo.Ui

PlateItem {
    id: chip

    required property WallStyle style
    required property HelpTip tip
    required property int index
    required property string title
    required property string symbol
    required property string helpText
    required property bool isMostUsed
    required property bool isSelected
    required property var selectedColors
    required property color selectedOutline

    signal pressed()

    width: label.width + 2 * HeaderMetrics.chipHorizontalPadding
    height: label.height + 2 * HeaderMetrics.chipVerticalPadding
    radius: height / 2
    mirrored: chip.LayoutMirroring.enabled
    colors: chip.isSelected ? chip.selectedColors : [HeaderMetrics.chipFill]
    strokeColors: [chip.isSelected ? chip.selectedOutline : HeaderMetrics.chipOutline]

    Keys.onReturnPressed: chip.pressed()
    Keys.onEnterPressed: chip.pressed()
    Keys.onSpacePressed: chip.pressed()

    Accessible.role: Accessible.RadioButton
    Accessible.name: chip.title
    Accessible.description: chip.helpText
    Accessible.checkable: true
    Accessible.checked: chip.isSelected
    Accessible.focusable: true
    Accessible.onPressAction: chip.pressed()
    Accessible.onToggleAction: chip.pressed()

    Row {
        id: label

        anchors.centerIn: parent
        spacing: HeaderMetrics.chipSpacing
        opacity: chip.isSelected ? 1 : HeaderMetrics.chipOpacity

        SymbolItem {
            anchors.verticalCenter: parent.verticalCenter
            name: chip.symbol
            textSize: HeaderMetrics.chipSymbolSize
            weight: Font.Bold
            color: chip.style.textColor
        }
        Text {
            text: chip.title
            color: chip.style.textColor
            font: chip.isMostUsed ? chip.style.mostUsedChipFont : chip.style.chipFont
        }
    }
    FocusRing {
        cornerRadius: chip.radius
        // The bar cuts off what reaches beyond it.
        gap: -WallMetrics.ringWidth
    }
    HelpArea {
        anchors.fill: parent
        text: chip.helpText
        tip: chip.tip
    }
    TapHandler {
        gesturePolicy: TapHandler.ReleaseWithinBounds
        onTapped: chip.pressed()
    }
}
