#include "fuzz/FuzzTarget.h"
#include "platform/linux/desktop/XSettings.h"

using namespace zelmo;

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    // Not a copy, behind which there would be a zero byte that may be read.
    const QByteArrayView bytes(data, static_cast<qsizetype>(size));
    const auto number = integerInXSettings(bytes, "Gtk/EnableAnimations");
    if (xSettingsReduceMotion(bytes) == true)
        fuzz::require(!number || *number == 0 || integerInXSettings(bytes, "Net/EnableAnimations") == 0,
                      "less movement is only what one of the settings asks for");
    return 0;
}
