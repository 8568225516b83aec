import QtQuick
import Zelmo.Ui

// One of the buttons beside the search field.
RoundButton {
    id: button

    // What gets the focus when the button goes, or goes out of use.
    required property Item refuge

    width: HeaderMetrics.editSide
    symbolSize: HeaderMetrics.editSymbolSize
    symbolWeight: Font.Black
    symbolColor: "white"
    opacity: enabled ? 1 : HeaderMetrics.disabledOpacity

    onVisibleChanged: {
        if (!visible && activeFocus)
            refuge.forceActiveFocus(Qt.OtherFocusReason);
    }
    onActiveFocusChanged: {
        // Not at once: the change of the focus is still under way.
        if (!activeFocus && !enabled)
            Qt.callLater(() => button.refuge.forceActiveFocus(Qt.OtherFocusReason));
    }
}
