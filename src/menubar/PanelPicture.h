#pragma once

#include <QImage>
#include <QRegion>
#include <QSizeF>

namespace zelmo {

// What is outside the panel's rounded corners.
enum class PanelEdge {
    blended, // transparent, with the panel's shadow
    cut,     // nothing: the window ends there
};

struct PanelLook {
    QSizeF size;   // of the panel, in points
    double scale;  // pixels to the point
    QImage behind; // the part of the desktop that the panel covers, in pixels; null where it can't be seen
    PanelEdge edge = PanelEdge::blended;
};

// How far the picture reaches beyond the panel on every side, in pixels.
int panelMargin(PanelEdge edge, double scale);
// The panel's material, fill, outline and shadow. Any thread.
QImage paintPanel(const PanelLook& look);
// The points of the panel that are not outside its corners.
QRegion panelOutlineRegion(QSize size);

} // namespace zelmo
