import QtQuick
import Zelmo.Ui

// The chips in a row, which scrolls where there is no room for it. All of them are there, for screen readers. The focus
// comes to the selected one.
FocusScope {
    id: bar

    required property CategoryBarModel categories
    required property WallStyle style
    required property HelpTip tip

    height: row.height
    activeFocusOnTab: true
    onActiveFocusChanged: if (!bar.activeFocus) bar.rest(chips.itemAt(bar.categories.selectedRow))

    Accessible.role: Accessible.List
    Accessible.name: "Categories"

    // Past the ends the key means something else.
    function goTo(index: int, event: KeyEvent) {
        const chip = chips.itemAt(index);
        event.accepted = chip !== null;
        if (chip)
            chip.forceActiveFocus(Qt.TabFocusReason);
    }

    function rest(chip: Item) {
        chip.focus = true;
        bar.show(chip);
    }

    function show(chip: Item) {
        const left = row.x + chip.x;
        area.contentX = Math.max(left + chip.width - area.width, Math.min(area.contentX, left));
    }

    Flickable {
        id: area

        readonly property real beginning: bar.LayoutMirroring.enabled ? area.contentWidth - area.width : 0

        anchors.fill: parent
        contentWidth: Math.max(area.width, row.width)
        clip: row.width > area.width
        boundsBehavior: Flickable.StopAtBounds
        flickableDirection: Flickable.HorizontalFlick
        onBeginningChanged: area.contentX = area.beginning

        Row {
            id: row

            anchors.left: parent.left
            spacing: HeaderMetrics.chipsSpacing

            Repeater {
                id: chips

                model: bar.categories
                delegate: CategoryChip {
                    id: chip

                    style: bar.style
                    tip: bar.tip
                    focus: chip.isSelected
                    onPressed: bar.categories.choose(chip.index)
                    Keys.onLeftPressed: event => bar.goTo(chip.index + (bar.LayoutMirroring.enabled ? 1 : -1), event)
                    Keys.onRightPressed: event => bar.goTo(chip.index + (bar.LayoutMirroring.enabled ? -1 : 1), event)
                    onActiveFocusChanged: if (chip.activeFocus) bar.show(chip)
                }
            }
        }
    }

    // A wheel that only turns one way moves the bar as well, towards its end as it turns down.
    WheelHandler {
        target: null
        orientation: Qt.Vertical
        onWheel: event => {
            const step = event.angleDelta.y * HeaderMetrics.wheelStep;
            const next = area.contentX + (bar.LayoutMirroring.enabled ? step : -step);
            area.contentX = Math.max(0, Math.min(next, area.contentWidth - area.width));
        }
    }
}
