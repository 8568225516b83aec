import QtQuick
import Zelmo.Ui

// The lines of text of a card: the name, the category and, among the most used, the use.
Column {
    id: labels

    required property AppTileCard card
    property int alignment: Text.AlignHCenter

    spacing: CardMetrics.labelSpacing

    CardName {
        width: parent.width
        card: labels.card
        horizontalAlignment: labels.alignment
    }
    Text {
        width: parent.width
        horizontalAlignment: labels.alignment
        elide: Text.ElideRight
        textFormat: Text.PlainText
        text: labels.card.categoryLabel
        color: labels.card.accentColor
        opacity: CardMetrics.categoryOpacity
        font: labels.card.style.appCategoryFont
    }
    Text {
        width: parent.width
        horizontalAlignment: labels.alignment
        elide: Text.ElideRight
        textFormat: Text.PlainText
        text: labels.card.usageSummary
        color: labels.card.style.textColor
        opacity: CardMetrics.usageOpacity
        font: labels.card.style.usageFont
        visible: text.length > 0
    }
}
