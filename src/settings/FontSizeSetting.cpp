#include "settings/FontSizeSetting.h"

#include <algorithm>
#include <cmath>

namespace zelmo {

int FontSizeSetting::nearest(double size) const {
    // A preferences file may say anything; a size that is no number is no size.
    const double known = std::isnan(size) ? m_fallback : size;
    return static_cast<int>(
        std::lround(std::clamp(known, static_cast<double>(m_range.smallest), static_cast<double>(m_range.largest))));
}

int FontSizeSetting::size() const {
    return nearest(m_read());
}

void FontSizeSetting::choose(double size) {
    if (const int chosen = nearest(size); chosen != this->size())
        m_write(chosen);
}

} // namespace zelmo
