#pragma once

#include <QHashFunctions>
#include <QString>

namespace zelmo {

// Says which picture an application shows; the picture itself is decoded when it is first drawn.
// Two icons are equal when they name the same picture.
struct AppIcon {
    // An icon-theme name, an absolute path or, inside a bundle, the name of a resource. Empty: the drawn fallback.
    QString name;
    // The bundle that `name` is looked up in; empty outside bundles.
    QString bundlePath;

    friend bool operator==(const AppIcon&, const AppIcon&) = default;
    friend size_t qHash(const AppIcon& icon, size_t seed = 0) { return qHashMulti(seed, icon.name, icon.bundlePath); }
};

} // namespace zelmo
