#pragma once

namespace zelmo {

// An sRGB colour, components from 0 to 1 where they are not a user's own, which are taken as stored.
struct StyleColor {
    double red = 0;
    double green = 0;
    double blue = 0;
    double opacity = 1;

    friend constexpr bool operator==(const StyleColor&, const StyleColor&) = default;
};

} // namespace zelmo
