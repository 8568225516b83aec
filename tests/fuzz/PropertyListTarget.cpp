#include "fuzz/FuzzTarget.h"
#include "platform/linux/propertylist/PropertyList.h"

#include <cmath>

using namespace zelmo;

namespace {

constexpr PropertyListLimits limits{.bytes = 1024 * 1024, .nodes = 10'000};

// Unlike ==, takes "not a number" to be the same as itself.
bool isSame(const PropertyListValue& a, const PropertyListValue& b) {
    const auto* realA = std::get_if<double>(&a);
    const auto* realB = std::get_if<double>(&b);
    return a == b || (realA && realB && std::isnan(*realA) && std::isnan(*realB));
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    auto list = PropertyList::parse(fuzz::copyOf(data, size), limits);
    if (!list)
        return 0;
    const auto before = list->values();
    for (auto it = before.cbegin(); it != before.cend(); ++it) {
        // Bytes that are no UTF-8 show as replacements, by which they are not found again.
        const bool isText = std::holds_alternative<QString>(*it) && !it.key().contains(QChar::ReplacementCharacter);
        const auto text = list->string(it.key().toUtf8().constData());
        fuzz::require(!isText || text == std::get<QString>(*it), "a text shows by its key as it does among all");
    }
    list->setValue(QStringLiteral("added"), 0.5);
    const auto stored = list->serialized();
    fuzz::require(stored.has_value(), "what was read can be stored");
    const auto again = PropertyList::parse(*stored, {.bytes = 64 * 1024 * 1024});
    fuzz::require(again.has_value(), "what was stored can be read");
    const auto after = again->values();
    fuzz::require(after.value(QStringLiteral("added")) == PropertyListValue(0.5), "what was set is stored");
    for (auto it = before.cbegin(); it != before.cend(); ++it) {
        if (it.key() != QLatin1StringView("added"))
            fuzz::require(after.contains(it.key()) && isSame(after[it.key()], *it), "what was not set stays");
    }
    return 0;
}
