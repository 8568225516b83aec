#include "fuzz/FuzzTarget.h"
#include "platform/linux/freedesktop/KeyFileOracle.h"

using namespace zelmo;

namespace {

const LocaleNames& locales() {
    static const LocaleNames names = [] {
        // Before GLib looks for the first time.
        qputenv("LANGUAGE", "de_AT:sr@latin");
        return LocaleNames::fromEnvironment();
    }();
    return names;
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const char* difference = test::differenceFromGLib(fuzz::copyOf(data, size), locales());
    if (difference != nullptr)
        std::fprintf(stderr, "%s: ", difference);
    fuzz::require(difference == nullptr, "an entry is read as GLib reads it");
    return 0;
}
