#pragma once

#include "platform/linux/icons/IconEnvironment.h"

#include <optional>

namespace zelmo {

// Finds out which icon theme the user has chosen, from the settings of the running desktop. Reads
// the files anew each time and keeps nothing; may be called on any thread.
class IconThemeName {
public:
    // Nothing when no desktop's settings name a theme.
    static std::optional<QByteArray> chosen(const IconEnvironment& environment);
};

// Whether the name can be that of a folder; settings are written by anyone.
bool isFolderName(const QByteArray& name);

} // namespace zelmo
