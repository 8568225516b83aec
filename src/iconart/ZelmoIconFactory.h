#pragma once

#include <QImage>

namespace zelmo {

// Draws the program's own icon. Stateless.
class ZelmoIconFactory {
public:
    // A square of so many pixels; null when that is no size.
    static QImage appIcon(int pixels);
};

} // namespace zelmo
