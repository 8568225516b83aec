#pragma once

#include <QByteArray>
#include <QStringBuilder>

#include <cstdint>

namespace zelmo::test {

// Settings as a desktop hands them out on an X server, in either order of bytes.
class XSettingsWriter {
public:
    enum class Order : char { leastFirst = 0, mostFirst = 1 };

    explicit XSettingsWriter(Order order = Order::leastFirst) : m_order(order) {}

    XSettingsWriter& integer(const QByteArray& name, std::int32_t value) {
        begin(0, name);
        m_settings += number(static_cast<std::uint32_t>(value), 4);
        return *this;
    }
    XSettingsWriter& text(const QByteArray& name, const QByteArray& value) {
        begin(1, name);
        m_settings += number(static_cast<std::uint32_t>(value.size()), 4) + padded(value);
        return *this;
    }
    XSettingsWriter& color(const QByteArray& name) {
        begin(2, name);
        m_settings += QByteArray("\0\1\2\3\4\5\6\7", 8);
        return *this;
    }
    XSettingsWriter& ofUnknownType(const QByteArray& name) {
        begin(3, name);
        return *this;
    }

    QByteArray bytes() const { return bytesWithCount(m_count); }
    QByteArray bytesWithCount(std::uint32_t count) const {
        return QByteArray(1, static_cast<char>(m_order)) + QByteArray(3, '\0') + number(77, 4) + number(count, 4) +
               m_settings;
    }

private:
    void begin(char type, const QByteArray& name) {
        ++m_count;
        m_settings += QByteArray(1, type) + QByteArray(1, '\0') + number(static_cast<std::uint32_t>(name.size()), 2) +
                      padded(name) + number(5, 4);
    }
    static QByteArray padded(const QByteArray& bytes) { return bytes + QByteArray((4 - bytes.size() % 4) % 4, '\0'); }
    QByteArray number(std::uint32_t value, int size) const {
        QByteArray bytes;
        for (int i = 0; i < size; ++i) {
            const int place = m_order == Order::leastFirst ? i : size - 1 - i;
            bytes += static_cast<char>(value >> (8 * place) & 0xff);
        }
        return bytes;
    }

    Order m_order;
    std::uint32_t m_count = 0;
    QByteArray m_settings;
};

} // namespace zelmo::test
