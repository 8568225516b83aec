#include "platform/linux/x11/X11PixelLayout.h"

#include <QSysInfo>

#include <array>
#include <bit>
#include <cstring>

namespace zelmo {

namespace {

constexpr auto ownByteOrder = QSysInfo::ByteOrder == QSysInfo::LittleEndian ? X11PixelLayout::ByteOrder::leastFirst
                                                                            : X11PixelLayout::ByteOrder::mostFirst;

// One colour's part of a pixel as a value up to 255.
class Channel {
public:
    explicit Channel(std::uint32_t mask) : m_mask(mask) {
        const int width = std::popcount(mask);
        const int kept = std::min(width, 8);
        if (kept == 0)
            return;
        m_shift = std::countr_zero(mask) + width - kept;
        for (std::uint32_t value = 0; value < 1U << kept; ++value) {
            // Its bits over and over, as the server itself does to tell the colour of such a value.
            for (int place = 8 - kept; place > -kept; place -= kept)
                m_values[value] |= static_cast<std::uint8_t>(place < 0 ? value >> -place : value << place);
        }
    }

    std::uint32_t of(std::uint32_t pixel) const { return m_values[((pixel & m_mask) >> m_shift) & 0xff]; }

private:
    std::uint32_t m_mask;
    int m_shift = 0;
    std::array<std::uint8_t, 256> m_values{};
};

template <int bytes, X11PixelLayout::ByteOrder order>
std::uint32_t pixelAt(const std::uint8_t* place) {
    std::uint32_t pixel = 0;
    for (int i = 0; i < bytes; ++i) {
        const int position = order == X11PixelLayout::ByteOrder::leastFirst ? i : bytes - 1 - i;
        pixel |= std::uint32_t{place[i]} << (8 * position);
    }
    return pixel;
}

struct Channels {
    Channel red;
    Channel green;
    Channel blue;
};

template <int bytes, X11PixelLayout::ByteOrder order>
void convertRow(const std::uint8_t* from, QRgb* to, int width, const Channels& channels) {
    for (int x = 0; x < width; ++x) {
        const std::uint32_t pixel = pixelAt<bytes, order>(from + x * bytes);
        to[x] = 0xff000000 | channels.red.of(pixel) << 16 | channels.green.of(pixel) << 8 | channels.blue.of(pixel);
    }
}

void makeOpaque(const std::uint8_t* from, QRgb* to, int width) {
    for (int x = 0; x < width; ++x) {
        QRgb pixel = 0;
        std::memcpy(&pixel, from + x * 4, sizeof pixel);
        to[x] = pixel | 0xff000000;
    }
}

template <X11PixelLayout::ByteOrder order>
auto rowConversion(int bitsPerPixel) {
    switch (bitsPerPixel) {
    case 16:
        return convertRow<2, order>;
    case 24:
        return convertRow<3, order>;
    default:
        return convertRow<4, order>;
    }
}

const xcb_visualtype_t* visualOf(const xcb_screen_t& screen, xcb_visualid_t identifier) {
    for (auto depths = xcb_screen_allowed_depths_iterator(&screen); depths.rem > 0; xcb_depth_next(&depths)) {
        for (auto visuals = xcb_depth_visuals_iterator(depths.data); visuals.rem > 0; xcb_visualtype_next(&visuals)) {
            if (visuals.data->visual_id == identifier)
                return visuals.data;
        }
    }
    return nullptr;
}

const xcb_format_t* formatOf(const xcb_setup_t& setup, int depth) {
    for (auto formats = xcb_setup_pixmap_formats_iterator(&setup); formats.rem > 0; xcb_format_next(&formats)) {
        if (formats.data->depth == depth)
            return formats.data;
    }
    return nullptr;
}

} // namespace

std::optional<X11PixelLayout> X11PixelLayout::ofRoot(const xcb_setup_t& setup, const xcb_screen_t& screen) {
    const xcb_visualtype_t* visual = visualOf(screen, screen.root_visual);
    const xcb_format_t* format = formatOf(setup, screen.root_depth);
    if (!visual || !format)
        return std::nullopt;
    const bool hasColors =
        visual->_class == XCB_VISUAL_CLASS_TRUE_COLOR || visual->_class == XCB_VISUAL_CLASS_DIRECT_COLOR;
    const int bits = format->bits_per_pixel;
    const int padding = format->scanline_pad;
    if (!hasColors || (bits != 16 && bits != 24 && bits != 32) || (padding != 8 && padding != 16 && padding != 32))
        return std::nullopt;
    return X11PixelLayout{.bitsPerPixel = bits,
                          .linePadding = padding,
                          .byteOrder = setup.image_byte_order == XCB_IMAGE_ORDER_LSB_FIRST ? ByteOrder::leastFirst
                                                                                           : ByteOrder::mostFirst,
                          .redMask = visual->red_mask,
                          .greenMask = visual->green_mask,
                          .blueMask = visual->blue_mask};
}

std::size_t X11PixelLayout::bytesPerLine(int width) const {
    const auto padding = static_cast<std::size_t>(linePadding);
    const std::size_t bits = static_cast<std::size_t>(width) * static_cast<std::size_t>(bitsPerPixel);
    return (bits + padding - 1) / padding * padding / 8;
}

bool X11PixelLayout::isRgb32() const {
    return bitsPerPixel == 32 && byteOrder == ownByteOrder && redMask == 0xff0000 && greenMask == 0xff00 &&
           blueMask == 0xff;
}

void X11PixelLayout::convert(const std::uint8_t* pixels, QImage& rows) const {
    const std::size_t step = bytesPerLine(rows.width());
    if (isRgb32()) {
        for (int row = 0; row < rows.height(); ++row)
            makeOpaque(pixels + static_cast<std::size_t>(row) * step, reinterpret_cast<QRgb*>(rows.scanLine(row)),
                       rows.width());
        return;
    }
    const Channels channels{Channel(redMask), Channel(greenMask), Channel(blueMask)};
    const auto convertOne = byteOrder == ByteOrder::leastFirst ? rowConversion<ByteOrder::leastFirst>(bitsPerPixel)
                                                               : rowConversion<ByteOrder::mostFirst>(bitsPerPixel);
    for (int row = 0; row < rows.height(); ++row)
        convertOne(pixels + static_cast<std::size_t>(row) * step, reinterpret_cast<QRgb*>(rows.scanLine(row)),
                   rows.width(), channels);
}

} // namespace zelmo
