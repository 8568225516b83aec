#include "platform/linux/icons/IconNameTable.h"

#include <QHashFunctions>

#include <algorithm>
#include <tuple>

namespace zelmo {

namespace {

constexpr std::size_t fileLimit = 1'000'000;
constexpr qsizetype nameLimit = 255;

std::uint32_t hashOf(QByteArrayView name) {
    return static_cast<std::uint32_t>(qHash(name, 0));
}

} // namespace

QByteArrayView IconNameTable::textOf(std::size_t name) const {
    return {m_texts.data() + m_names[name].text,
            static_cast<qsizetype>(m_names[name + 1].text) - static_cast<qsizetype>(m_names[name].text)};
}

std::span<const IconPlace> IconNameTable::find(QByteArrayView name) const {
    if (m_names.empty())
        return {};
    const std::uint32_t hash = hashOf(name);
    const auto end = m_names.cend() - 1;
    auto found =
        std::lower_bound(m_names.cbegin(), end, hash, [](const Name& n, std::uint32_t h) { return n.hash < h; });
    for (; found != end && found->hash == hash; ++found) {
        if (textOf(static_cast<std::size_t>(found - m_names.cbegin())) == name)
            return {m_places.data() + found->place, (found + 1)->place - found->place};
    }
    return {};
}

std::size_t IconNameTable::byteCount() const {
    return m_texts.capacity() + m_names.capacity() * sizeof(Name) + m_places.capacity() * sizeof(IconPlace);
}

void IconNameTable::Builder::add(QByteArrayView name, IconPlace place) {
    if (name.isEmpty() || name.size() > nameLimit || m_files.size() == fileLimit)
        return;
    m_files.push_back(
        {hashOf(name), static_cast<std::uint32_t>(m_texts.size()), static_cast<std::uint16_t>(name.size()), place});
    m_texts.insert(m_texts.end(), name.cbegin(), name.cend());
}

IconNameTable IconNameTable::Builder::build() {
    const auto textOfFile = [this](const File& file) {
        return QByteArrayView(m_texts.data() + file.text, static_cast<qsizetype>(file.length));
    };
    std::sort(m_files.begin(), m_files.end(), [&](const File& a, const File& b) {
        if (a.hash != b.hash)
            return a.hash < b.hash;
        if (const int order = textOfFile(a).compare(textOfFile(b)); order != 0)
            return order < 0;
        return std::tie(a.place.folder, a.place.type) < std::tie(b.place.folder, b.place.type);
    });

    IconNameTable table;
    table.m_places.reserve(m_files.size());
    for (std::size_t i = 0; i < m_files.size(); ++i) {
        const QByteArrayView text = textOfFile(m_files[i]);
        if (i == 0 || m_files[i - 1].hash != m_files[i].hash || textOfFile(m_files[i - 1]) != text) {
            table.m_names.push_back({m_files[i].hash, static_cast<std::uint32_t>(table.m_texts.size()),
                                     static_cast<std::uint32_t>(table.m_places.size())});
            table.m_texts.insert(table.m_texts.end(), text.cbegin(), text.cend());
        }
        table.m_places.push_back(m_files[i].place);
    }
    table.m_names.push_back(
        {0, static_cast<std::uint32_t>(table.m_texts.size()), static_cast<std::uint32_t>(table.m_places.size())});
    table.m_texts.shrink_to_fit();
    table.m_names.shrink_to_fit();
    *this = Builder();
    return table;
}

} // namespace zelmo
