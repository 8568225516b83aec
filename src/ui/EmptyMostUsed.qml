import QtQuick
import Zelmo.Ui

// In place of a ranking while nothing has been used yet.
Column {
    id: empty

    required property WallStyle style

    topPadding: WallMetrics.emptyTopPadding
    spacing: WallMetrics.emptySpacing

    SymbolItem {
        anchors.horizontalCenter: parent.horizontalCenter
        name: "chart.bar"
        textSize: WallMetrics.emptySymbolSize
        weight: Font.DemiBold
        color: empty.style.textColor
        opacity: WallMetrics.emptySymbolOpacity
    }
    Text {
        width: parent.width
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.Wrap
        text: "Most Used will fill in as you use your Mac."
        color: empty.style.textColor
        opacity: WallMetrics.emptyTitleOpacity
        font: empty.style.emptyTitleFont

        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }
    Text {
        width: parent.width
        horizontalAlignment: Text.AlignHCenter
        wrapMode: Text.Wrap
        text: "Zelmo ranks apps by active time while it is running, plus apps opened from Zelmo."
        color: empty.style.textColor
        opacity: WallMetrics.emptyTextOpacity
        font: empty.style.emptyTextFont

        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }
}
