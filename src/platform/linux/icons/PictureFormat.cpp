#include "platform/linux/icons/PictureFormat.h"

#include <algorithm>
#include <mutex>
#include <string_view>

namespace zelmo {

namespace {

constexpr int memoryLimit = 64; // mebibytes: 4096 by 4096 pixels

// A progressive JPEG goes over all of its pixels once for each scan. A scan takes a few bytes when it changes nothing,
// and ten milliseconds at the largest size; pictures have about ten of them.
constexpr QByteArrayView scanStart("\xff\xda");
constexpr qsizetype scanLimit = 64;

} // namespace

QByteArray pictureFormat(const QByteArray& bytes) {
    using namespace std::string_view_literals;
    const std::string_view start(bytes.constData(), static_cast<std::size_t>(std::min<qsizetype>(bytes.size(), 16)));
    if (start.starts_with("\x89PNG\r\n\x1a\n"sv))
        return "png";
    if (start.starts_with("\xff\xd8\xff"sv))
        return "jpeg";
    if (start.starts_with("GIF87a"sv) || start.starts_with("GIF89a"sv))
        return "gif";
    if (start.starts_with("RIFF"sv) && start.size() >= 12 && start.substr(8, 4) == "WEBP"sv)
        return "webp";
    if (start.starts_with("/* XPM"sv))
        return "xpm";
    if (start.starts_with("icns"sv))
        return "icns";
    if (start.starts_with("\0\0\1\0"sv))
        return "ico";
    if (start.starts_with("BM"sv))
        return "bmp";
    return {};
}

PictureReader::PictureReader(const QByteArray& bytes, const QByteArray& format)
    : m_takesLong(format == "jpeg" && bytes.count(scanStart) > scanLimit) {
    m_buffer.setData(bytes);
    m_reader.setDevice(&m_buffer);
    m_reader.setAutoDetectImageFormat(false);
    m_reader.setFormat(format);
}

QSize PictureReader::size() const {
    return m_takesLong ? QSize() : m_reader.size();
}

void limitPictureMemory() {
    static std::once_flag isLimited;
    std::call_once(isLimited, [] { QImageReader::setAllocationLimit(memoryLimit); });
}

} // namespace zelmo
