#include "iconart/BlurPlane.h"

#include <algorithm>
#include <cmath>

namespace zelmo {

namespace {

using Values = std::vector<std::uint16_t>;

// Each value becomes the mean of those in a box above and below it. All columns at a time, so that the processor can
// work on several and reads the memory in order.
void blurDown(const Values& from, Values& to, int width, int height, int boxWidth) {
    const int half = boxWidth / 2;
    const float reciprocal = 1 / static_cast<float>(boxWidth);
    const Values nothing(static_cast<std::size_t>(width));
    const auto row = [&](int y) {
        return y >= 0 && y < height ? from.data() + static_cast<std::ptrdiff_t>(y) * width : nothing.data();
    };
    std::vector<std::int32_t> sums(static_cast<std::size_t>(width));
    for (int y = -half; y < height; ++y) {
        const std::uint16_t* entering = row(y + half);
        const std::uint16_t* leaving = row(y - half - 1);
        std::int32_t* sum = sums.data();
        for (int x = 0; x < width; ++x)
            sum[x] += entering[x] - leaving[x];
        if (y < 0)
            continue;
        std::uint16_t* target = to.data() + static_cast<std::ptrdiff_t>(y) * width;
        // The half is less than what a mean falls short of the next whole number and more than what is rounded here.
        for (int x = 0; x < width; ++x)
            target[x] = static_cast<std::uint16_t>((static_cast<float>(sum[x]) + 0.5F) * reciprocal);
    }
}

// Rows become columns.
void transpose(const Values& from, Values& to, int width, int height) {
    constexpr int block = 16; // both sides of a block stay in the fast memory
    for (int top = 0; top < height; top += block) {
        for (int left = 0; left < width; left += block) {
            for (int y = top; y < std::min(top + block, height); ++y) {
                for (int x = left; x < std::min(left + block, width); ++x)
                    to[static_cast<std::size_t>(x) * static_cast<std::size_t>(height) + static_cast<std::size_t>(y)] =
                        from[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                             static_cast<std::size_t>(x)];
            }
        }
    }
}

} // namespace

BlurPlane::BlurPlane(int width, int height)
    : m_width(width), m_height(height), m_values(static_cast<std::size_t>(width) * static_cast<std::size_t>(height)) {}

void BlurPlane::blur(int boxWidth) {
    Values scratch(m_values.size());
    const auto thrice = [&](int width, int height) {
        blurDown(m_values, scratch, width, height, boxWidth);
        blurDown(scratch, m_values, width, height, boxWidth);
        blurDown(m_values, scratch, width, height, boxWidth);
        transpose(scratch, m_values, width, height);
    };
    thrice(m_width, m_height);
    thrice(m_height, m_width);
}

int boxWidth(double deviation) {
    const int width = static_cast<int>(std::lround(std::sqrt(4 * deviation * deviation + 1)));
    return width | 1;
}

} // namespace zelmo
