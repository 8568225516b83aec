#include "fuzz/FuzzTarget.h"
#include "platform/linux/freedesktop/KeyFileOracle.h"

using namespace zelmo;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray bytes = fuzz::copyOf(data, size);
    fuzz::require(test::readsCommandAsGLib(bytes), "a command is read as GLib reads it");
    const auto few = ExecCommand::words(bytes, 2);
    fuzz::require(!few || few->size() <= 2, "there are no more words than asked for");
    return 0;
}
