#include "fuzz/FuzzTarget.h"
#include "platform/linux/icons/IconFileDecoder.h"

using namespace zelmo;

// The first byte says how large the picture is wanted, the rest is the file.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0)
        return 0;
    const int pixels = 1 + data[0];
    const QImage image = IconFileDecoder::decode(fuzz::copyOf(data + 1, size - 1), pixels);
    fuzz::require(image.isNull() || image.size() == QSize(pixels, pixels), "a picture has the wanted size");
    fuzz::require(image.isNull() || image.format() == QImage::Format_ARGB32_Premultiplied, "a picture has one format");
    return 0;
}
