#include "fuzz/FuzzTarget.h"
#include "platform/linux/icons/SvgGuard.h"
#include "platform/linux/icons/SvgPicture.h"

using namespace zelmo;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr int pixels = 104;
    const QByteArray bytes = fuzz::copyOf(data, size);
    const SvgVerdict verdict = SvgGuard::check(bytes);
    const QImage image = SvgPicture::render(bytes, pixels);
    fuzz::require(image.isNull() || image.size() == QSize(pixels, pixels), "a picture has the wanted size");
    const bool isCompressed = bytes.startsWith("\x1f\x8b");
    fuzz::require(image.isNull() || isCompressed || verdict == SvgVerdict::accepted ||
                      verdict == SvgVerdict::tooManyDashes,
                  "what was refused is not drawn");
    return 0;
}
