#pragma once

#include <cstdint>

namespace zelmo {

// One box blur over `count` values that stand `step` apart. `width` is odd. Three of them in a row come close to a
// Gaussian blur. Beyond the ends there is nothing.
void boxBlur(const std::uint16_t* from, std::uint16_t* to, int count, int step, int width);

// The width of each of three boxes that together blur with this standard deviation.
int boxWidth(double deviation);

} // namespace zelmo
