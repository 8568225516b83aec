#pragma once

class QQuickView;

namespace zelmo {

class FontFaces;
class IconCache;
class LauncherStore;
class Preferences;

// Puts the wall's content into `view`, bound to the store and the settings. What the content needs
// besides them is owned by the view; the arguments outlive it.
void loadWall(QQuickView& view, LauncherStore& store, const Preferences& preferences, const FontFaces& faces,
              IconCache& icons);

} // namespace zelmo
