#pragma once

#include <cstdint>
#include <string_view>

namespace zelmo {

// Packs the bytes of a text into a number, the first into the highest byte. Of more than four the last four remain.
constexpr std::uint32_t fourCharCode(std::string_view text) {
    std::uint32_t code = 0;
    for (const char byte : text)
        code = (code << 8) | static_cast<unsigned char>(byte);
    return code;
}

} // namespace zelmo
