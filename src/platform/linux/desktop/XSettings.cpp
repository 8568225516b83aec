#include "platform/linux/desktop/XSettings.h"

#include <array>

namespace zelmo {

namespace {

enum class ByteOrder : std::uint8_t { leastFirst = 0, mostFirst = 1 };
enum class ValueType : std::uint8_t { integer = 0, text = 1, color = 2 };

constexpr std::size_t colorSize = 8;

// Numbers and stretches of bytes, one after the other. Past the end there is nothing, again and again.
class Reader {
public:
    explicit Reader(QByteArrayView bytes) : m_bytes(bytes) {}

    void setByteOrder(ByteOrder order) { m_order = order; }
    bool hasEnded() const { return m_hasEnded; }

    QByteArrayView take(std::size_t count) {
        if (m_hasEnded || count > static_cast<std::size_t>(m_bytes.size()) - m_place) {
            m_hasEnded = true;
            return {};
        }
        const QByteArrayView part = m_bytes.sliced(static_cast<qsizetype>(m_place), static_cast<qsizetype>(count));
        m_place += count;
        return part;
    }
    // Bytes and what fills them up to a multiple of four.
    QByteArrayView takePadded(std::size_t count) {
        const QByteArrayView part = take(count);
        take((4 - count % 4) % 4);
        return part;
    }
    std::uint32_t number(std::size_t size) {
        const QByteArrayView part = take(size);
        std::uint32_t value = 0;
        for (qsizetype i = 0; i < part.size(); ++i) {
            const qsizetype place = m_order == ByteOrder::mostFirst ? i : part.size() - 1 - i;
            value = value << 8 | static_cast<std::uint8_t>(part[place]);
        }
        return value;
    }

private:
    QByteArrayView m_bytes;
    std::size_t m_place = 0;
    ByteOrder m_order = ByteOrder::leastFirst;
    bool m_hasEnded = false;
};

} // namespace

std::optional<std::int32_t> integerInXSettings(QByteArrayView bytes, QByteArrayView name) {
    Reader reader(bytes);
    const std::uint32_t order = reader.number(1);
    if (order > static_cast<std::uint32_t>(ByteOrder::mostFirst))
        return std::nullopt;
    reader.setByteOrder(static_cast<ByteOrder>(order));
    reader.take(3);
    reader.number(4); // how often the settings have changed
    const std::uint32_t count = reader.number(4);
    for (std::uint32_t i = 0; i < count && !reader.hasEnded(); ++i) {
        const auto type = static_cast<ValueType>(reader.number(1));
        reader.take(1);
        const QByteArrayView settingName = reader.takePadded(reader.number(2));
        reader.number(4); // when this setting has changed
        switch (type) {
        case ValueType::integer:
            if (const std::uint32_t value = reader.number(4); !reader.hasEnded() && settingName == name)
                return static_cast<std::int32_t>(value);
            break;
        case ValueType::text:
            reader.takePadded(reader.number(4));
            break;
        case ValueType::color:
            reader.take(colorSize);
            break;
        default: // of a size that nobody knows
            return std::nullopt;
        }
    }
    return std::nullopt;
}

std::optional<bool> xSettingsReduceMotion(QByteArrayView bytes) {
    constexpr std::array<const char*, 2> names{"Net/EnableAnimations", "Gtk/EnableAnimations"};
    for (const char* name : names) {
        if (const auto value = integerInXSettings(bytes, name))
            return *value == 0;
    }
    return std::nullopt;
}

} // namespace zelmo
