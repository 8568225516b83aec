#include "platform/linux/icons/Jpeg2000Guard.h"

#include <QtEndian>

#include <algorithm>
#include <cstdint>
#include <optional>

namespace zelmo {

namespace {

constexpr std::uint64_t tileLimit = 1024;
constexpr std::uint32_t componentLimit = 4;
constexpr std::uint32_t layerLimit = 64;
constexpr std::uint32_t levelLimit = 32;
constexpr unsigned smallestPrecinct = 5; // the exponent of two of its side

enum Marker : std::uint32_t {
    startOfCodeStream = 0xFF4F,
    size = 0xFF51,
    codingDefault = 0xFF52,
    codingOfComponent = 0xFF53,
    tilePartLengths = 0xFF55,
    packetLengths = 0xFF57,
    packetLengthsOfTilePart = 0xFF58,
    quantizationDefault = 0xFF5C,
    quantizationOfComponent = 0xFF5D,
    regionOfInterest = 0xFF5E,
    registration = 0xFF63,
    comment = 0xFF64,
    startOfTilePart = 0xFF90,
    startOfData = 0xFF93,
    endOfCodeStream = 0xFFD9,
};

// Big-endian numbers, one after the other. Past the end all of them are 0.
class Reader {
public:
    explicit Reader(QByteArrayView bytes) : m_bytes(bytes) {}

    qsizetype position() const { return m_position; }
    qsizetype rest() const { return m_bytes.size() - m_position; }
    void moveTo(qsizetype position) { m_position = std::min(position, m_bytes.size()); }

    std::uint32_t number(qsizetype length) {
        if (length > rest()) {
            m_position = m_bytes.size();
            return 0;
        }
        std::uint32_t value = 0;
        for (qsizetype i = 0; i < length; ++i)
            value = value << 8 | static_cast<std::uint8_t>(m_bytes[m_position + i]);
        m_position += length;
        return value;
    }

private:
    QByteArrayView m_bytes;
    qsizetype m_position = 0;
};

// The headers of a code stream: of the picture, then of each part of a tile. The data between them is skipped.
class CodeStream {
public:
    CodeStream(QByteArrayView bytes, int sideLimit)
        : m_bytes(bytes), m_reader(bytes), m_sideLimit(static_cast<std::uint32_t>(sideLimit)) {}

    bool isHarmless() {
        if (m_reader.number(2) != startOfCodeStream || m_reader.number(2) != size || !readSize())
            return false;
        std::uint32_t marker = readSegments();
        while (marker == startOfTilePart) {
            const qsizetype start = m_reader.position() - 2;
            m_reader.number(4); // its own length and the tile's number
            const qsizetype length = m_reader.number(4);
            m_reader.number(2);
            if (readSegments() != startOfData)
                return false;
            // The last part may leave its length open.
            if (length == 0 || length >= m_bytes.size() - start)
                return true;
            if (start + length < m_reader.position())
                return false;
            m_reader.moveTo(start + length);
            marker = m_reader.number(2);
        }
        return marker == endOfCodeStream;
    }

private:
    bool readSize() {
        const std::uint32_t length = m_reader.number(2);
        m_reader.number(2);
        const std::uint64_t right = m_reader.number(4);
        const std::uint64_t bottom = m_reader.number(4);
        const std::uint64_t left = m_reader.number(4);
        const std::uint64_t top = m_reader.number(4);
        const std::uint64_t tileWidth = m_reader.number(4);
        const std::uint64_t tileHeight = m_reader.number(4);
        const std::uint64_t tilesLeft = m_reader.number(4);
        const std::uint64_t tilesTop = m_reader.number(4);
        const std::uint32_t components = m_reader.number(2);
        if (right <= left || bottom <= top || right - left > m_sideLimit || bottom - top > m_sideLimit)
            return false;
        if (tileWidth == 0 || tileHeight == 0 || tilesLeft > left || tilesTop > top)
            return false;
        const std::uint64_t columns = (right - tilesLeft + tileWidth - 1) / tileWidth;
        const std::uint64_t rows = (bottom - tilesTop + tileHeight - 1) / tileHeight;
        if (columns > tileLimit || rows > tileLimit || columns * rows > tileLimit)
            return false;
        if (components == 0 || components > componentLimit || length != 38 + 3 * components)
            return false;
        for (std::uint32_t i = 0; i < components; ++i) {
            // Eight bits without a sign, for every pixel.
            if (m_reader.number(3) != 0x07'01'01)
                return false;
        }
        return true;
    }

    // Everything up to the next marker that starts something else; 0 when something in between is refused.
    std::uint32_t readSegments() {
        for (;;) {
            const std::uint32_t marker = m_reader.number(2);
            if (marker == startOfTilePart || marker == startOfData || marker == endOfCodeStream)
                return marker;
            const qsizetype start = m_reader.position();
            const qsizetype length = m_reader.number(2);
            if (length < 2 || length > m_bytes.size() - start || !isHarmlessSegment(marker, start + length))
                return 0;
            m_reader.moveTo(start + length);
        }
    }

    // The decoder looks for a way on behind a marker that it doesn't know, so that none but these are let through.
    bool isHarmlessSegment(std::uint32_t marker, qsizetype end) {
        switch (marker) {
        case codingDefault: {
            const std::uint32_t style = m_reader.number(1);
            m_reader.number(1);
            const std::uint32_t layers = m_reader.number(2);
            m_reader.number(1);
            return layers <= layerLimit && isHarmlessCoding(style, end);
        }
        case codingOfComponent: {
            m_reader.number(1);
            const std::uint32_t style = m_reader.number(1);
            return isHarmlessCoding(style, end);
        }
        case tilePartLengths:
        case packetLengths:
        case packetLengthsOfTilePart:
        case quantizationDefault:
        case quantizationOfComponent:
        case regionOfInterest:
        case registration:
        case comment:
            return true;
        default:
            return false;
        }
    }

    bool isHarmlessCoding(std::uint32_t style, qsizetype end) {
        const std::uint32_t levels = m_reader.number(1);
        m_reader.number(4); // of code blocks and the transformation
        const bool namesPrecincts = (style & 1) != 0;
        if (levels > levelLimit || m_reader.position() + (namesPrecincts ? levels + 1 : 0) != end)
            return false;
        for (std::uint32_t i = 0; namesPrecincts && i <= levels; ++i) {
            const std::uint32_t exponents = m_reader.number(1);
            if ((exponents & 0xF) < smallestPrecinct || exponents >> 4 < smallestPrecinct)
                return false;
        }
        return true;
    }

    QByteArrayView m_bytes;
    Reader m_reader;
    std::uint32_t m_sideLimit;
};

struct Box {
    QByteArrayView type;
    QByteArrayView contents;
};

// Nothing when the box does not lie within the bytes. A length of 0 goes on to the end, one of 1 is given behind.
std::optional<Box> boxAt(QByteArrayView bytes, qsizetype position) {
    if (bytes.size() - position < 8)
        return std::nullopt;
    const QByteArrayView rest = bytes.sliced(position);
    qsizetype start = 8;
    qsizetype length = qFromBigEndian<std::uint32_t>(rest.data());
    if (length == 1) {
        if (rest.size() < 16 || qFromBigEndian<std::uint32_t>(rest.data() + 8) != 0)
            return std::nullopt;
        start = 16;
        length = qFromBigEndian<std::uint32_t>(rest.data() + 12);
    } else if (length == 0) {
        length = rest.size();
    }
    if (length < start || length > rest.size())
        return std::nullopt;
    return Box{rest.sliced(4, 4), rest.sliced(start, length - start)};
}

bool isHarmlessHeader(QByteArrayView bytes) {
    for (qsizetype position = 0; position < bytes.size();) {
        const std::optional<Box> box = boxAt(bytes, position);
        // A palette may stand for as many channels as it likes.
        if (!box || box->type == QByteArrayView("pclr"))
            return false;
        position = box->contents.data() + box->contents.size() - bytes.data();
    }
    return true;
}

} // namespace

bool isHarmlessJpeg2000(QByteArrayView bytes, int sideLimit) {
    for (qsizetype position = 0; position < bytes.size();) {
        const std::optional<Box> box = boxAt(bytes, position);
        if (!box || box->type == QByteArrayView("pclr"))
            return false;
        const qsizetype contents = box->contents.data() - bytes.data();
        // The decoder goes on to the end of the file, whatever the length of this box.
        if (box->type == QByteArrayView("jp2c"))
            return CodeStream(bytes.sliced(contents), sideLimit).isHarmless();
        if (box->type == QByteArrayView("jp2h") && !isHarmlessHeader(box->contents))
            return false;
        position = contents + box->contents.size();
    }
    return false;
}

} // namespace zelmo
