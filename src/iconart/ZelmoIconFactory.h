#pragma once

#include "appearance/AppIconStyle.h"

#include <QImage>

#include <optional>

namespace zelmo {

class Preferences;

// Draws the program's own icon for the desktop. Stateless; main thread.
class ZelmoIconFactory {
public:
    // Two pixels to the point, whatever the screens have.
    static constexpr double scale = 2;

    // A square of so many points; in the style of the preferences when none is given. Null when that is no size.
    static QImage appIcon(int points, const Preferences& preferences, std::optional<AppIconStyle> style = std::nullopt);
};

} // namespace zelmo
