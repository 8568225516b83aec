#pragma once

#include "catalog/AppIcon.h"
#include "catalog/LauncherStore.h"
#include "ui/CardLayout.h"
#include "ui/IconCache.h"

#include <QtQml/qqmlregistration.h>

namespace zelmo {

// Types of the folders below, which know nothing of views, under the names that views use.
struct LauncherStoreForQml {
    Q_GADGET
    QML_FOREIGN(zelmo::LauncherStore)
    QML_NAMED_ELEMENT(LauncherStore)
    QML_UNCREATABLE("made at start-up")
};

struct LaunchableAppForQml {
    Q_GADGET
    QML_FOREIGN(zelmo::LaunchableApp)
    QML_ANONYMOUS
};

struct AppIconForQml {
    Q_GADGET
    QML_FOREIGN(zelmo::AppIcon)
    QML_ANONYMOUS
};

struct CardLayoutForQml {
    Q_GADGET
    QML_FOREIGN(zelmo::CardLayout)
    QML_ANONYMOUS
};

struct IconCacheForQml {
    Q_GADGET
    QML_FOREIGN(zelmo::IconCache)
    QML_NAMED_ELEMENT(IconCache)
    QML_UNCREATABLE("made at start-up")
};

} // namespace zelmo
