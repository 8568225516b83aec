#include "menubar/PanelPlacement.h"

#include <algorithm>

namespace zelmo {

namespace {

enum class Side { below, above, right, left };

int endOf(int start, int length) {
    return start + length;
}

// Where the anchor stands in a bar, the panel goes to the side where the windows are.
Side bestSide(const PanelSurroundings& around, QSize panel, int gap) {
    const QPoint center = around.anchor.center();
    const QRect& area = around.workArea;
    if (center.y() < area.top())
        return Side::below;
    if (center.y() >= endOf(area.top(), area.height()))
        return Side::above;
    if (center.x() < area.left())
        return Side::right;
    if (center.x() >= endOf(area.left(), area.width()))
        return Side::left;
    const int beneath = endOf(area.top(), area.height()) - endOf(around.anchor.top(), around.anchor.height());
    if (beneath >= panel.height() + gap)
        return Side::below;
    if (around.anchor.top() - area.top() >= panel.height() + gap)
        return Side::above;
    return around.anchor.left() - area.left() >= panel.width() + gap ? Side::left : Side::right;
}

// The start nearest to the wanted one at which the length lies inside, with the gap where there is room for it; the
// first where it does not fit.
int inside(int wanted, int length, int start, int whole, int gap) {
    const int margin = std::clamp((whole - length) / 2, 0, gap);
    return std::max(start + margin, std::min(wanted, start + whole - margin - length));
}

} // namespace

QPoint panelPosition(const PanelSurroundings& around, QSize panel, int gap) {
    const QRect& area = around.workArea;
    // A bar ends where the work area begins, which may be farther than the anchor does.
    const int top = std::max(endOf(around.anchor.top(), around.anchor.height()), area.top());
    const int bottom = std::min(around.anchor.top(), endOf(area.top(), area.height()));
    const int left = std::max(endOf(around.anchor.left(), around.anchor.width()), area.left());
    const int right = std::min(around.anchor.left(), endOf(area.left(), area.width()));
    QPoint wanted(around.anchor.left() + (around.anchor.width() - panel.width()) / 2,
                  around.anchor.top() + (around.anchor.height() - panel.height()) / 2);
    switch (bestSide(around, panel, gap)) {
    case Side::below:
        wanted.setY(top + gap);
        break;
    case Side::above:
        wanted.setY(bottom - gap - panel.height());
        break;
    case Side::right:
        wanted.setX(left + gap);
        break;
    case Side::left:
        wanted.setX(right - gap - panel.width());
        break;
    }
    return {inside(wanted.x(), panel.width(), area.left(), area.width(), gap),
            inside(wanted.y(), panel.height(), area.top(), area.height(), gap)};
}

} // namespace zelmo
