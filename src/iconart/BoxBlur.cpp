#include "iconart/BoxBlur.h"

#include <cmath>

namespace zelmo {

void boxBlur(const std::uint16_t* from, std::uint16_t* to, int count, int step, int width) {
    const int half = width / 2;
    // Rounded up, so that a plain area keeps its value, and fine enough for no sum to come out above it.
    const std::uint64_t reciprocal = (std::uint64_t{1} << 32U) / static_cast<std::uint32_t>(width) + 1;
    std::uint32_t sum = 0;
    for (int i = -half; i < count; ++i) {
        if (i + half < count)
            sum += from[(i + half) * step];
        if (i - half - 1 >= 0)
            sum -= from[(i - half - 1) * step];
        if (i >= 0)
            to[i * step] = static_cast<std::uint16_t>((sum * reciprocal) >> 32U);
    }
}

int boxWidth(double deviation) {
    const int width = static_cast<int>(std::lround(std::sqrt(4 * deviation * deviation + 1)));
    return width | 1;
}

} // namespace zelmo
