import QtQuick
import Zelmo.Ui

Item {
    id: row

    required property LauncherStore store
    required property WallStyle style
    required property Item below

    height: Math.max(glyph.height, titles.height, close.height)

    ZelmoGlyphItem {
        id: glyph

        anchors {
            left: parent.left
            verticalCenter: parent.verticalCenter
        }
        width: HeaderMetrics.glyphSide
        height: width
    }

    Column {
        id: titles

        anchors {
            left: glyph.right
            right: close.left
            verticalCenter: parent.verticalCenter
            leftMargin: HeaderMetrics.titleRowSpacing
            rightMargin: HeaderMetrics.titleRowSpacing
        }
        spacing: HeaderMetrics.titleSpacing

        Text {
            width: parent.width
            horizontalAlignment: Text.AlignLeft
            elide: Text.ElideRight
            text: "Zelmo"
            color: row.style.textColor
            opacity: HeaderMetrics.titleOpacity
            font: row.style.titleFont

            Accessible.role: Accessible.Heading
            Accessible.name: text
        }
        Text {
            width: parent.width
            horizontalAlignment: Text.AlignLeft
            elide: Text.ElideRight
            text: row.store.isEditingApps ? "Select apps to hide from the launcher" : "Colorful launchpad for your Mac"
            color: row.style.textColor
            opacity: HeaderMetrics.subtitleOpacity
            font: row.style.subtitleFont

            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }
    }

    RoundButton {
        id: close

        anchors {
            right: parent.right
            verticalCenter: parent.verticalCenter
        }
        width: HeaderMetrics.closeSide
        title: "Close"
        symbol: "xmark"
        symbolSize: HeaderMetrics.closeSymbolSize
        symbolWeight: Font.Bold
        symbolColor: row.style.textColor
        symbolOpacity: HeaderMetrics.closeSymbolOpacity
        colors: [HeaderMetrics.closeFill]
        onPressed: row.store.hideOverlay()
        KeyNavigation.down: row.below
    }
}
