#pragma once

#include "menubar/PanelPlacement.h"

#include <optional>

class QScreen;

namespace zelmo {

// The screen on which something was clicked, in whose points the panel is placed. A value, as long as the screens stay
// as they are.
struct PanelScreen {
    // Around a place in the root's pixels; around the pointer where it is not known or on no screen.
    static PanelScreen of(const std::optional<QRect>& place);

    // A rectangle in points of the screens, in the root's pixels.
    QRect pixels(const QRect& points) const;

    QScreen* screen = nullptr; // null where there is none
    PanelSurroundings surroundings{};
};

} // namespace zelmo
