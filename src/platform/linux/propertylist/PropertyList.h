#pragma once

#include <QByteArray>
#include <QHash>
#include <QStringList>

#include <memory>
#include <optional>
#include <variant>

namespace zelmo {

// How much a property list may hold to be read at all.
struct PropertyListLimits {
    std::size_t bytes = 0; // of the file, and again of what its objects come to when shared ones are copied
    std::size_t nodes = 1'000'000;
    std::size_t depth = 128; // of dictionaries and arrays in one another
};

// The types that the program works with; a list may hold others.
using PropertyListValue = std::variant<QString, double, bool, QByteArray, QStringList>;

// A property list with a dictionary at its root, in memory. Keeps entries of every type, also those
// that it can't show, and the form, XML or binary, that it was read from. Owned by whoever reads or
// changes a file; each object stays on one thread, several threads may use one each.
class PropertyList {
public:
    // An empty dictionary, to be stored as XML.
    PropertyList();
    ~PropertyList();
    PropertyList(PropertyList&&) noexcept;
    PropertyList& operator=(PropertyList&&) noexcept;

    // Nothing for bytes that are damaged, hostile or beyond the limits.
    static std::optional<PropertyList> parse(const QByteArray& bytes, const PropertyListLimits& limits);

    // Nothing when there is no such entry or it is no string.
    std::optional<QString> string(const char* key) const;
    // The entries of the types above. An integer shows as a real; an array that holds anything other
    // than strings does not show.
    QHash<QString, PropertyListValue> values() const;

    void setValue(const QString& key, const PropertyListValue& value);

    // XML, which a person can edit, unless the list was read from the binary form: that one holds
    // values, such as parts of a second, that would be lost.
    std::optional<QByteArray> serialized() const;

private:
    enum class Form { xml, binary };
    struct NodeDeleter {
        void operator()(void* node) const;
    };

    PropertyList(void* root, Form form);

    std::unique_ptr<void, NodeDeleter> m_root;
    Form m_form;
};

} // namespace zelmo
