import QtQuick
import Zelmo.Ui

// The name of a card's application.
Text {
    required property AppTileCard card

    elide: Text.ElideRight
    wrapMode: Text.Wrap
    maximumLineCount: card.style.nameLines
    textFormat: Text.PlainText
    text: card.name
    color: card.style.textColor
    opacity: CardMetrics.nameOpacity
    font: card.style.appNameFont
}
