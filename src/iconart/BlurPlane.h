#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace zelmo {

// One channel of a picture, blurred in place by three boxes in each direction, which come close to a Gaussian blur.
// Beyond the edges there is nothing. Any thread, one at a time.
class BlurPlane {
public:
    // Of zeros. The values are at most 2,047.
    BlurPlane(int width, int height);

    int height() const { return m_height; }
    std::uint16_t* row(int y) { return m_values.data() + static_cast<std::ptrdiff_t>(y) * m_width; }

    // The width of each box is odd and below 2,000.
    void blur(int boxWidth);

private:
    int m_width;
    int m_height;
    std::vector<std::uint16_t> m_values;
};

// The width of each of three boxes that together blur with this standard deviation.
int boxWidth(double deviation);

} // namespace zelmo
