#pragma once

#include <QByteArrayView>

#include <cstdint>
#include <optional>

namespace zelmo {

// The integer with this name among the settings that a desktop hands out on an X server. `bytes` is the property as it
// comes from another program, which may have written anything; what follows damage is not there.
std::optional<std::int32_t> integerInXSettings(QByteArrayView bytes, QByteArrayView name);

// Whether these settings ask for less movement; nothing when they don't speak of it.
std::optional<bool> xSettingsReduceMotion(QByteArrayView bytes);

} // namespace zelmo
