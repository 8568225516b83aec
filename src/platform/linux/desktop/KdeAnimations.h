#pragma once

#include <QByteArray>
#include <QList>

#include <optional>

namespace zelmo {

// Whether KDE's settings ask for animations that take no time; nothing when they don't speak of it. The folders are
// those of settings, the user's own first. Reads the files anew each time; any thread.
std::optional<bool> kdeReducesMotion(const QList<QByteArray>& configFolders);

} // namespace zelmo
