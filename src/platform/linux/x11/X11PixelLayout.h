#pragma once

#include <QImage>

#include <cstdint>
#include <optional>
#include <xcb/xcb.h>

namespace zelmo {

// How an X server lays out the pixels of an image, as it says itself when a program connects. A plain value; the
// conversion may run on any thread.
struct X11PixelLayout {
    enum class ByteOrder { leastFirst, mostFirst };

    // Of images of the screen's root. Nothing when the pixels are numbers in a table of colours, or of no known size.
    static std::optional<X11PixelLayout> ofRoot(const xcb_setup_t& setup, const xcb_screen_t& screen);

    // From one row of an image to the next.
    std::size_t bytesPerLine(int width) const;
    // Whether the pixels are what QImage::Format_RGB32 is, but for the byte that says how opaque they are.
    bool isRgb32() const;
    // Writes pixels over all rows of an RGB32 picture.
    void convert(const std::uint8_t* pixels, QImage& rows) const;

    int bitsPerPixel = 0; // 16, 24 or 32
    int linePadding = 32; // in bits
    ByteOrder byteOrder = ByteOrder::leastFirst;
    std::uint32_t redMask = 0;
    std::uint32_t greenMask = 0;
    std::uint32_t blueMask = 0;
};

} // namespace zelmo
