#pragma once

#include <optional>

struct _GSettingsSchemaSource;

namespace zelmo {

// Whether GNOME's settings ask for no animations; nothing when their description is not installed, or when they are on
// because nobody has said otherwise. `schemas` may be null. The first call makes the settings' own threads, which stay.
// Main thread.
std::optional<bool> gnomeReducesMotion(_GSettingsSchemaSource* schemas);

} // namespace zelmo
