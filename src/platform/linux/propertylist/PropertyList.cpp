#include "platform/linux/propertylist/PropertyList.h"

#include "platform/linux/files/Utf8Decoder.h"
#include "platform/linux/propertylist/PropertyListGuard.h"

#include <QSet>

#include <clocale>
#include <cstdlib>
#include <limits>
#include <plist/plist.h>

namespace zelmo {

namespace {

// The library reads and writes numbers the way the thread's locale does, and a program with a user
// interface runs in the user's locale: "0.5" would be read as 0 where the comma separates decimals.
class PlainNumbers {
public:
    PlainNumbers() : m_previous(uselocale(plainLocale())) {}
    ~PlainNumbers() { uselocale(m_previous); }
    PlainNumbers(const PlainNumbers&) = delete;
    PlainNumbers& operator=(const PlainNumbers&) = delete;

private:
    static locale_t plainLocale() {
        static const locale_t locale = newlocale(LC_ALL_MASK, "C", nullptr);
        return locale;
    }

    locale_t m_previous;
};

struct Freed {
    void operator()(void* memory) const { std::free(memory); }
};

QString textOf(QByteArrayView utf8) {
    return utf8Decoder().decode(utf8);
}

QString stringValue(plist_t node) {
    std::uint64_t length = 0;
    const char* text = plist_get_string_ptr(node, &length);
    return textOf(QByteArrayView(text, static_cast<qsizetype>(length)));
}

// Texts of C end at the first zero character, and XML has no way to write one.
QByteArray plainText(QString text) {
    return text.replace(QChar(u'\0'), QChar(QChar::ReplacementCharacter)).toUtf8();
}

// The library keeps a negative number as its complement and a number of 64 bits without a sign alike,
// and tells them apart only where it writes them.
double integerValue(plist_t node) {
    std::uint64_t value = 0;
    plist_get_uint_val(node, &value);
    if (value <= static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max()))
        return static_cast<double>(value);
    char* xml = nullptr;
    std::uint32_t length = 0;
    plist_to_xml(node, &xml, &length);
    const std::unique_ptr<char, Freed> owned(xml);
    const bool isNegative = xml && QByteArrayView(xml, static_cast<qsizetype>(length)).contains("<integer>-");
    return isNegative ? static_cast<double>(static_cast<std::int64_t>(value)) : static_cast<double>(value);
}

std::optional<QStringList> stringArray(plist_t node) {
    QStringList strings;
    plist_array_iter position = nullptr;
    plist_array_new_iter(node, &position);
    const std::unique_ptr<void, Freed> owned(position);
    for (;;) {
        plist_t item = nullptr;
        plist_array_next_item(node, position, &item);
        if (!item)
            return strings;
        if (!PLIST_IS_STRING(item))
            return std::nullopt;
        strings.append(stringValue(item));
    }
}

using PropertyListValues = QHash<QString, PropertyListValue>;

// Nothing is inserted for a node of a type that does not show.
void insertValue(PropertyListValues& values, const QString& key, plist_t node) {
    switch (plist_get_node_type(node)) {
    case PLIST_STRING:
        values.insert(key, stringValue(node));
        break;
    case PLIST_BOOLEAN: {
        std::uint8_t value = 0;
        plist_get_bool_val(node, &value);
        values.insert(key, value != 0);
        break;
    }
    case PLIST_UINT:
        values.insert(key, integerValue(node));
        break;
    case PLIST_REAL: {
        double value = 0;
        plist_get_real_val(node, &value);
        values.insert(key, value);
        break;
    }
    case PLIST_DATA: {
        std::uint64_t length = 0;
        const char* bytes = plist_get_data_ptr(node, &length);
        values.insert(key, QByteArray(bytes, static_cast<qsizetype>(bytes ? length : 0)));
        break;
    }
    case PLIST_ARRAY:
        if (const auto strings = stringArray(node))
            values.insert(key, *strings);
        break;
    default:
        break;
    }
}

plist_t nodeOf(const QString& value) {
    return plist_new_string(plainText(value).constData());
}

plist_t nodeOf(double value) {
    return plist_new_real(value);
}

plist_t nodeOf(bool value) {
    return plist_new_bool(value ? 1 : 0);
}

plist_t nodeOf(const QByteArray& value) {
    return plist_new_data(value.constData(), static_cast<std::uint64_t>(value.size()));
}

plist_t nodeOf(const QStringList& value) {
    plist_t array = plist_new_array();
    for (const QString& string : value)
        plist_array_append_item(array, nodeOf(string));
    return array;
}

} // namespace

void PropertyList::NodeDeleter::operator()(void* node) const {
    plist_free(node);
}

PropertyList::PropertyList() : PropertyList(plist_new_dict(), Form::xml) {}
PropertyList::PropertyList(void* root, Form form) : m_root(root), m_form(form) {}
PropertyList::~PropertyList() = default;
PropertyList::PropertyList(PropertyList&&) noexcept = default;
PropertyList& PropertyList::operator=(PropertyList&&) noexcept = default;

std::optional<PropertyList> PropertyList::parse(const QByteArray& bytes, const PropertyListLimits& limits) {
    // The library measures in 32 bits.
    const std::size_t maximum = std::min<std::size_t>(limits.bytes, std::numeric_limits<std::int32_t>::max());
    if (static_cast<std::size_t>(bytes.size()) > maximum)
        return std::nullopt;
    plist_t root = nullptr;
    Form form = Form::xml;
    if (bytes.startsWith("bplist")) {
        if (!isHarmlessBinaryPropertyList(bytes, limits))
            return std::nullopt;
        form = Form::binary;
        plist_from_bin(bytes.constData(), static_cast<std::uint32_t>(bytes.size()), &root);
    } else {
        const qsizetype start = bytes.startsWith("\xEF\xBB\xBF") ? 3 : 0;
        const QByteArrayView text = QByteArrayView(bytes).sliced(start);
        if (!isHarmlessXmlPropertyList(text, limits))
            return std::nullopt;
        const PlainNumbers plainNumbers;
        plist_from_xml(text.data(), static_cast<std::uint32_t>(text.size()), &root);
    }
    PropertyList list(root, form);
    if (!PLIST_IS_DICT(root))
        return std::nullopt;
    return list;
}

std::optional<QString> PropertyList::string(const char* key) const {
    auto* const node = plist_dict_get_item(m_root.get(), key);
    if (!PLIST_IS_STRING(node))
        return std::nullopt;
    return stringValue(node);
}

QHash<QString, PropertyListValue> PropertyList::values() const {
    const PlainNumbers plainNumbers;
    PropertyListValues values;
    plist_dict_iter position = nullptr;
    plist_dict_new_iter(m_root.get(), &position);
    const std::unique_ptr<void, Freed> owned(position);
    // A binary list may hold a key twice. The first one is what counts wherever a value is asked for or set.
    QSet<QByteArray> seenKeys;
    for (;;) {
        char* key = nullptr;
        plist_t node = nullptr;
        plist_dict_next_item(m_root.get(), position, &key, &node);
        const std::unique_ptr<char, Freed> ownedKey(key);
        if (!node)
            return values;
        if (seenKeys.contains(key))
            continue;
        seenKeys.insert(key);
        insertValue(values, textOf(key), node);
    }
}

void PropertyList::setValue(const QString& key, const PropertyListValue& value) {
    plist_dict_set_item(m_root.get(), plainText(key).constData(),
                        std::visit([](const auto& typed) { return nodeOf(typed); }, value));
}

std::optional<QByteArray> PropertyList::serialized() const {
    const PlainNumbers plainNumbers;
    char* bytes = nullptr;
    std::uint32_t length = 0;
    if (m_form == Form::binary)
        plist_to_bin(m_root.get(), &bytes, &length);
    else
        plist_to_xml(m_root.get(), &bytes, &length);
    const std::unique_ptr<char, Freed> owned(bytes);
    if (!bytes)
        return std::nullopt;
    return QByteArray(bytes, static_cast<qsizetype>(length));
}

} // namespace zelmo
