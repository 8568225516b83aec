#pragma once

#include <QString>

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace zelmo {

inline QLatin1StringView latin1(std::string_view text) {
    return QLatin1StringView(text.data(), static_cast<qsizetype>(text.size()));
}

// The rows of an enumeration of styles, each with members `style`, `rawValue` and `title`, found by case and by raw
// value. Made at compile time only, which fails where a row is missing or out of order.
template <typename Row, std::size_t count>
class StyleTable {
public:
    using Style = decltype(Row::style);

    consteval explicit StyleTable(const std::array<Row, count>& rows) : m_rows(rows) {
        for (std::size_t i = 0; i < count; ++i) {
            if (static_cast<std::size_t>(rows[i].style) != i)
                throw "a row is out of order";
        }
    }

    constexpr const Row& operator[](Style style) const { return m_rows[static_cast<std::size_t>(style)]; }

    std::optional<Style> find(QStringView rawValue) const {
        for (const Row& row : m_rows) {
            if (rawValue == latin1(row.rawValue))
                return row.style;
        }
        return std::nullopt;
    }

private:
    std::array<Row, count> m_rows;
};

} // namespace zelmo
