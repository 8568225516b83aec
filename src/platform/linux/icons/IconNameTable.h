#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <cstdint>
#include <span>
#include <vector>

namespace zelmo {

// In the order that they are preferred in.
enum class IconFileType : std::uint8_t { png, svg, xpm };

// Where one file of an icon is: the number of its folder, and its kind.
struct IconPlace {
    std::uint16_t folder = 0;
    IconFileType type = IconFileType::png;
};

// All icon names of a theme with the places of their files. A theme has tens of thousands of names,
// so the table is three plain arrays: the texts, the names ordered by hash, and the places, all in
// the order of the names. Filled once by IconNameTable::Builder, then only read.
class IconNameTable {
public:
    class Builder;

    // The places of the name, in the order of the folders' numbers and then of the kinds.
    std::span<const IconPlace> find(QByteArrayView name) const;

    std::size_t nameCount() const { return m_names.empty() ? 0 : m_names.size() - 1; }
    std::size_t placeCount() const { return m_places.size(); }
    std::size_t byteCount() const;

private:
    // The texts and places of a name end where those of the next name start; the last name is a mere end.
    struct Name {
        std::uint32_t hash;
        std::uint32_t text;
        std::uint32_t place;
    };

    QByteArrayView textOf(std::size_t name) const;

    std::vector<char> m_texts;
    std::vector<Name> m_names;
    std::vector<IconPlace> m_places;
};

// Collects the files of a theme, in any order, and makes the table of them.
class IconNameTable::Builder {
public:
    // Files beyond what a table can hold are left out.
    void add(QByteArrayView name, IconPlace place);
    IconNameTable build();

private:
    struct File {
        std::uint32_t hash = 0;
        std::uint32_t text = 0;
        std::uint16_t length = 0;
        IconPlace place;
    };

    std::vector<char> m_texts;
    std::vector<File> m_files;
};

} // namespace zelmo
