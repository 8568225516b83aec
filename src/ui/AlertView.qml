import QtQuick
import Zelmo.Ui

FocusScope {
    id: view

    required property AlertModel alert

    width: AlertMetrics.width
    height: content.height + 2 * AlertMetrics.padding
    focus: true

    Keys.onEscapePressed: view.alert.dismissed()

    Accessible.role: Accessible.AlertMessage
    Accessible.name: view.alert.message
    Accessible.description: view.alert.informativeText

    Rectangle {
        anchors.fill: parent
        color: AlertMetrics.background
        border.color: AlertMetrics.outline
    }

    Column {
        id: content

        x: AlertMetrics.padding
        y: AlertMetrics.padding
        width: parent.width - 2 * AlertMetrics.padding
        spacing: AlertMetrics.buttonsTop

        Row {
            width: parent.width
            spacing: AlertMetrics.columnSpacing

            Rectangle {
                id: badge

                width: AlertMetrics.badgeSide
                height: width
                radius: width / 2
                color: view.alert.isWarning ? AlertMetrics.warningBadge : AlertMetrics.informationalBadge

                Text {
                    anchors.centerIn: parent
                    text: view.alert.isWarning ? "!" : "i"
                    color: AlertMetrics.badgeText
                    font.pixelSize: AlertMetrics.badgeFontSize
                    font.weight: Font.Black
                }
            }

            Column {
                width: parent.width - badge.width - parent.spacing
                spacing: AlertMetrics.textSpacing

                Text {
                    width: parent.width
                    wrapMode: Text.Wrap
                    elide: Text.ElideRight
                    maximumLineCount: AlertMetrics.messageLines
                    textFormat: Text.PlainText
                    text: view.alert.message
                    color: AlertMetrics.text
                    font.pixelSize: AlertMetrics.messageFontSize
                    font.weight: Font.Bold
                }
                Text {
                    width: parent.width
                    wrapMode: Text.Wrap
                    textFormat: Text.PlainText
                    text: view.alert.informativeText
                    color: AlertMetrics.text
                    opacity: AlertMetrics.informativeOpacity
                    font.pixelSize: AlertMetrics.informativeFontSize
                }
            }
        }

        Row {
            anchors.right: parent.right
            // The default button stands at the end of the line.
            layoutDirection: Qt.RightToLeft
            spacing: AlertMetrics.buttonSpacing

            Repeater {
                model: view.alert.buttons

                AlertButton {
                    required property string modelData
                    required property int index

                    text: modelData
                    isDefault: index === 0
                    focus: index === 0
                    onPressed: view.alert.answered(index)
                }
            }
        }
    }
}
