import QtQuick
import Zelmo.Ui

// One of the buttons beside the search field.
RoundButton {
    readonly property bool tellsWhetherEnabled: true

    width: HeaderMetrics.editSide
    symbolSize: HeaderMetrics.editSymbolSize
    symbolWeight: Font.Black
    symbolColor: "white"
    // An item that is not to be seen would keep the focus.
    enabled: visible
    opacity: enabled ? 1 : HeaderMetrics.disabledOpacity
}
