#include "platform/linux/propertylist/PropertyListGuard.h"

#include <cstdint>

namespace zelmo {

namespace {

constexpr std::size_t headerSize = 8; // "bplist00"
constexpr std::size_t trailerSize = 32;

// One object of the table, as far as its own bytes tell.
struct ObjectShape {
    std::size_t contentBytes = 0;
    std::size_t references = 0; // how many
    std::size_t firstReference = 0;
    bool isContainer = false;
    bool isDictionary = false;
    bool isString = false;
};

// What an object comes to when everything that it refers to is copied out.
struct Expansion {
    enum class State : std::uint8_t { unknown, open, known };
    State state = State::unknown;
    bool isString = false;
    std::uint32_t depth = 0;
    std::uint64_t nodes = 0;
    std::uint64_t bytes = 0;
};

class BinaryScan {
public:
    BinaryScan(QByteArrayView bytes, const PropertyListLimits& limits) : m_bytes(bytes), m_limits(limits) {}

    bool run() { return readTrailer() && expand(); }

private:
    struct Visit {
        std::size_t object;
        std::size_t next; // the reference to look at next
        ObjectShape shape;
    };

    std::size_t size() const { return static_cast<std::size_t>(m_bytes.size()); }

    std::uint64_t number(std::size_t position, std::size_t length) const {
        std::uint64_t value = 0;
        for (std::size_t i = 0; i < length; ++i)
            value = value << 8 | static_cast<unsigned char>(m_bytes[static_cast<qsizetype>(position + i)]);
        return value;
    }

    bool readTrailer() {
        if (size() < headerSize + trailerSize || !m_bytes.startsWith("bplist00"))
            return false;
        const std::size_t trailer = size() - trailerSize;
        m_offsetSize = static_cast<std::size_t>(number(trailer + 6, 1));
        m_referenceSize = static_cast<std::size_t>(number(trailer + 7, 1));
        const std::uint64_t objects = number(trailer + 8, 8);
        const std::uint64_t root = number(trailer + 16, 8);
        const std::uint64_t table = number(trailer + 24, 8);
        if (m_offsetSize < 1 || m_offsetSize > 8 || m_referenceSize < 1 || m_referenceSize > 8)
            return false;
        if (objects > m_limits.nodes || root >= objects || table < headerSize || table > trailer)
            return false;
        if (objects > (trailer - table) / m_offsetSize)
            return false;
        m_table = static_cast<std::size_t>(table);
        m_objects = static_cast<std::size_t>(objects);
        m_root = static_cast<std::size_t>(root);
        return true;
    }

    // Whether `length` bytes from `position` lie in the part of the file that holds objects.
    bool holds(std::size_t position, std::uint64_t length) const {
        return position <= m_table && length <= m_table - position;
    }

    std::optional<ObjectShape> shape(std::size_t object) const {
        const std::uint64_t offset = number(m_table + object * m_offsetSize, m_offsetSize);
        if (offset < headerSize || offset >= m_table)
            return std::nullopt;
        std::size_t position = static_cast<std::size_t>(offset);
        const auto marker = static_cast<unsigned>(number(position, 1));
        const unsigned kind = marker >> 4;
        const unsigned detail = marker & 0xF;
        ++position;
        switch (kind) {
        case 0x0: // false and true; there is nothing to make of the null object
            return detail == 8 || detail == 9 ? std::optional(ObjectShape{}) : std::nullopt;
        case 0x1: // an integer; one that does not fit 64 bits would lose its upper half
            if (detail > 4 || !holds(position, 1U << detail) || (detail == 4 && number(position, 8) != 0))
                return std::nullopt;
            return ObjectShape{.contentBytes = std::size_t{1} << detail};
        case 0x2: // a real of 4 or 8 bytes
        case 0x3: // a date, always 8
            if ((detail != 3 && (kind == 0x3 || detail != 2)) || !holds(position, 1U << detail))
                return std::nullopt;
            return ObjectShape{.contentBytes = std::size_t{1} << detail};
        case 0x8: // a reference within an archive
            if (detail > 7 || !holds(position, detail + 1U))
                return std::nullopt;
            return ObjectShape{.contentBytes = detail + 1U};
        case 0x4: // data
        case 0x5: // ASCII
        case 0x6: // UTF-16
        case 0xA: // an array
        case 0xD: // a dictionary
            return countedShape(kind, detail, position);
        default:
            return std::nullopt;
        }
    }

    std::optional<ObjectShape> countedShape(unsigned kind, unsigned detail, std::size_t position) const {
        std::uint64_t count = detail;
        if (detail == 0xF) {
            if (!holds(position, 1))
                return std::nullopt;
            const auto marker = static_cast<unsigned>(number(position, 1));
            ++position;
            if (marker >> 4 != 0x1 || (marker & 0xF) > 3 || !holds(position, 1U << (marker & 0xF)))
                return std::nullopt;
            const std::size_t length = std::size_t{1} << (marker & 0xF);
            count = number(position, length);
            position += length;
        }
        if (count > size())
            return std::nullopt;
        ObjectShape result{.isDictionary = kind == 0xD, .isString = kind == 0x5 || kind == 0x6};
        std::uint64_t length = kind == 0x6 ? 2 * count : count;
        if (kind == 0xA || kind == 0xD) {
            result.isContainer = true;
            result.references = static_cast<std::size_t>(kind == 0xD ? 2 * count : count);
            result.firstReference = position;
            length = result.references * m_referenceSize;
        }
        if (!holds(position, length))
            return std::nullopt;
        // The library reads these as UTF-8 and stores what is none as a text that it then does not read.
        if (kind == 0x5 &&
            !m_bytes.sliced(static_cast<qsizetype>(position), static_cast<qsizetype>(count)).isValidUtf8())
            return std::nullopt;
        if (result.isString && holdsZeroCharacter(position, count, kind == 0x6 ? 2 : 1))
            return std::nullopt;
        result.contentBytes = static_cast<std::size_t>(length);
        return result;
    }

    // No text does, and the parsing library ends the program over a key that does.
    bool holdsZeroCharacter(std::size_t position, std::uint64_t count, std::size_t characterSize) const {
        for (std::uint64_t i = 0; i < count; ++i) {
            if (number(position + i * characterSize, characterSize) == 0)
                return true;
        }
        return false;
    }

    bool open(std::size_t object) {
        const std::optional<ObjectShape> found = shape(object);
        if (!found || m_visits.size() >= m_limits.depth + 1)
            return false;
        m_expansions[object] = {.state = Expansion::State::open,
                                .isString = found->isString,
                                .depth = found->isContainer ? 1U : 0U,
                                .nodes = 1,
                                .bytes = found->contentBytes};
        m_visits.push_back({.object = object, .next = 0, .shape = *found});
        return true;
    }

    // Depth first, each object once; what is shared is counted again from what is known of it.
    bool expand() {
        m_expansions.resize(m_objects);
        if (!open(m_root))
            return false;
        while (!m_visits.empty()) {
            Visit& visit = m_visits.back();
            Expansion& parent = m_expansions[visit.object];
            if (visit.next == visit.shape.references) {
                parent.state = Expansion::State::known;
                m_visits.pop_back();
                continue;
            }
            const std::uint64_t child =
                number(visit.shape.firstReference + visit.next * m_referenceSize, m_referenceSize);
            if (child >= m_objects)
                return false;
            const Expansion& expansion = m_expansions[static_cast<std::size_t>(child)];
            if (expansion.state == Expansion::State::open)
                return false; // contains itself
            if (expansion.state == Expansion::State::unknown) {
                if (!open(static_cast<std::size_t>(child)))
                    return false;
                continue;
            }
            const bool isKey = visit.shape.isDictionary && visit.next < visit.shape.references / 2;
            if (isKey && !expansion.isString)
                return false;
            parent.nodes += expansion.nodes;
            parent.bytes += expansion.bytes;
            parent.depth = std::max(parent.depth, expansion.depth + 1);
            if (parent.nodes > m_limits.nodes || parent.bytes > m_limits.bytes || parent.depth > m_limits.depth)
                return false;
            ++visit.next;
        }
        return true;
    }

    QByteArrayView m_bytes;
    const PropertyListLimits& m_limits;
    std::size_t m_offsetSize = 0;
    std::size_t m_referenceSize = 0;
    std::size_t m_table = 0;
    std::size_t m_objects = 0;
    std::size_t m_root = 0;
    std::vector<Expansion> m_expansions;
    std::vector<Visit> m_visits;
};

} // namespace

bool isHarmlessBinaryPropertyList(QByteArrayView bytes, const PropertyListLimits& limits) {
    return BinaryScan(bytes, limits).run();
}

} // namespace zelmo
