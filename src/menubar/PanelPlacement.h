#pragma once

#include <QRect>
#include <QSize>

namespace zelmo {

// Around a panel that opens beside something; all in points.
struct PanelSurroundings {
    QRect anchor;   // what the panel opens beside; may be empty
    QRect screen;   // whole
    QRect workArea; // without the desktop's own bars
};

// Where a panel of this size goes: below, above or beside the anchor, away from the bar that it stands in, and wholly
// inside the work area where it fits there.
QPoint panelPosition(const PanelSurroundings& around, QSize panel, int gap);

} // namespace zelmo
