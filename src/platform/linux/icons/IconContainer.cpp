#include "platform/linux/icons/IconContainer.h"

#include "platform/linux/icons/Jpeg2000Picture.h"

#include <QtEndian>

#include <algorithm>
#include <array>
#include <string_view>

namespace zelmo {

namespace {

constexpr QByteArrayView pngStart("\x89PNG\r\n\x1a\n");
constexpr QByteArrayView icoStart("\0\0\1\0", 4);
constexpr std::size_t entryLimit = 256;

// The kinds of picture in an .icns file. `maskType` names the picture's transparency where it is apart.
struct IcnsType {
    std::string_view type;
    int side;
    int depth;
    std::string_view maskType;
};
constexpr std::array icnsTypes{
    IcnsType{"ICON", 32, 1, ""},      IcnsType{"ICN#", 32, 1, ""},       IcnsType{"ics#", 16, 1, ""},
    IcnsType{"ich#", 48, 1, ""},      IcnsType{"icl4", 32, 4, "ICN#"},   IcnsType{"ics4", 16, 4, "ics#"},
    IcnsType{"ich4", 48, 4, "ich#"},  IcnsType{"icl8", 32, 8, "ICN#"},   IcnsType{"ics8", 16, 8, "ics#"},
    IcnsType{"ich8", 48, 8, "ich#"},  IcnsType{"is32", 16, 24, "s8mk"},  IcnsType{"il32", 32, 24, "l8mk"},
    IcnsType{"ih32", 48, 24, "h8mk"}, IcnsType{"it32", 128, 24, "t8mk"}, IcnsType{"icp4", 16, 32, ""},
    IcnsType{"icp5", 32, 32, ""},     IcnsType{"icp6", 64, 32, ""},      IcnsType{"ic07", 128, 32, ""},
    IcnsType{"ic08", 256, 32, ""},    IcnsType{"ic09", 512, 32, ""},     IcnsType{"ic10", 1024, 32, ""},
    IcnsType{"ic11", 32, 32, ""},     IcnsType{"ic12", 64, 32, ""},      IcnsType{"ic13", 256, 32, ""},
    IcnsType{"ic14", 512, 32, ""},
};

std::uint32_t bigEndian(const QByteArray& bytes, qsizetype offset) {
    return qFromBigEndian<std::uint32_t>(bytes.constData() + offset);
}

// The picture says itself how wide it is; what the container says is a hint only.
int pngSide(const QByteArray& bytes, qsizetype offset, qsizetype length) {
    const std::uint32_t width = length < 24 ? 0 : bigEndian(bytes, offset + 16);
    return width <= 0xFFFF ? static_cast<int>(width) : 0;
}

bool isPng(const QByteArray& bytes, qsizetype offset, qsizetype length) {
    return QByteArrayView(bytes).sliced(offset, length).startsWith(pngStart);
}

bool isJpeg2000(const QByteArray& bytes, qsizetype offset, qsizetype length) {
    return Jpeg2000Picture::isPicture(QByteArray::fromRawData(bytes.constData() + offset, length));
}

} // namespace

bool IconContainer::isContainer(const QByteArray& bytes) {
    return bytes.startsWith("icns") || bytes.startsWith(icoStart);
}

IconContainer IconContainer::parse(const QByteArray& bytes) {
    IconContainer container;
    container.m_bytes = bytes;
    if (bytes.startsWith("icns"))
        container.parseIcns();
    else if (bytes.startsWith(icoStart))
        container.parseIco();
    return container;
}

// Blocks follow each other: four letters, the length with these eight bytes, the contents.
void IconContainer::parseIcns() {
    std::vector<std::pair<QByteArray, Part>> blocks;
    for (qsizetype at = 8; at + 8 <= m_bytes.size() && blocks.size() < entryLimit;) {
        const qsizetype length = bigEndian(m_bytes, at + 4);
        if (length < 8 || length > m_bytes.size() - at)
            break;
        blocks.emplace_back(m_bytes.sliced(at, 4), Part{at, length});
        at += length;
    }
    for (const auto& [type, part] : blocks) {
        const auto known = std::find_if(icnsTypes.begin(), icnsTypes.end(), [&, &typeName = type](const IcnsType& t) {
            return typeName == QByteArrayView(t.type.data(), 4);
        });
        if (known == icnsTypes.end())
            continue;
        Entry entry{known->side, known->depth, part, {}, 0};
        if (isPng(m_bytes, part.offset + 8, part.length - 8)) {
            entry.picture = {part.offset + 8, part.length - 8};
            entry.side = pngSide(m_bytes, entry.picture.offset, entry.picture.length);
        } else if (isJpeg2000(m_bytes, part.offset + 8, part.length - 8)) {
            entry.picture = {part.offset + 8, part.length - 8};
        }
        for (const auto& [maskType, maskPart] : blocks) {
            if (!known->maskType.empty() && maskType == QByteArrayView(known->maskType.data(), 4))
                entry.mask = maskPart;
        }
        m_entries.push_back(entry);
    }
}

// A directory of sixteen bytes for each picture stands before the pictures.
void IconContainer::parseIco() {
    const qsizetype count = m_bytes.size() < 6 ? 0 : qFromLittleEndian<std::uint16_t>(m_bytes.constData() + 4);
    for (qsizetype i = 0; i < count && m_entries.size() < entryLimit; ++i) {
        const qsizetype at = 6 + 16 * i;
        if (at + 16 > m_bytes.size())
            return;
        const auto* directory = reinterpret_cast<const unsigned char*>(m_bytes.constData() + at);
        const qsizetype length = qFromLittleEndian<std::uint32_t>(directory + 8);
        const qsizetype offset = qFromLittleEndian<std::uint32_t>(directory + 12);
        if (offset > m_bytes.size() || length > m_bytes.size() - offset || length == 0)
            continue;
        Entry entry{directory[0] == 0 ? 256 : directory[0],
                    qFromLittleEndian<std::uint16_t>(directory + 6),
                    {offset, length},
                    {},
                    at};
        if (isPng(m_bytes, offset, length)) {
            entry.side = pngSide(m_bytes, offset, length);
            entry.depth = 32;
        }
        m_entries.push_back(entry);
    }
}

QByteArray IconContainer::standalone(const Entry& entry) const {
    QByteArray picture = m_bytes.sliced(entry.picture.offset, entry.picture.length);
    if (picture.startsWith(pngStart) || Jpeg2000Picture::isPicture(picture))
        return picture;
    if (m_bytes.startsWith(icoStart)) {
        QByteArray directory = m_bytes.sliced(entry.directory, 16);
        qToLittleEndian<std::uint32_t>(6 + 16, directory.data() + 12);
        return QByteArray("\0\0\1\0\1\0", 6) + directory + picture;
    }
    const QByteArray mask = m_bytes.sliced(entry.mask.offset, entry.mask.length);
    QByteArray start("icns\0\0\0\0", 8);
    qToBigEndian(static_cast<std::uint32_t>(start.size() + picture.size() + mask.size()), start.data() + 4);
    return start + picture + mask;
}

std::vector<QByteArray> IconContainer::pictures(int pixels, std::size_t limit) const {
    std::vector<Entry> ordered = m_entries;
    std::stable_sort(ordered.begin(), ordered.end(), [pixels](const Entry& a, const Entry& b) {
        if ((a.side < pixels) != (b.side < pixels))
            return b.side < pixels;
        if (a.side != b.side)
            return a.side < pixels ? a.side > b.side : a.side < b.side;
        return a.depth > b.depth;
    });
    if (ordered.size() > limit)
        ordered.resize(limit);
    std::vector<QByteArray> files;
    files.reserve(ordered.size());
    for (const Entry& entry : ordered)
        files.push_back(standalone(entry));
    return files;
}

} // namespace zelmo
