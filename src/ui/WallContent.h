#pragma once

#include "overlay/OverlayContent.h"

#include <memory>

namespace zelmo {

class CategoryBarModel;
class DesktopBackdrop;
class DesktopCapture;
class FontFaces;
class IconCache;
class LauncherStore;
class MotionPreference;
class Preferences;
class WallModel;
class WallScene;
class WallStyle;

// What the wall needs. All of it outlives the wall.
struct WallServices {
    WallScene& scene;
    LauncherStore& store;
    const Preferences& preferences;
    const FontFaces& fontFaces;
    IconCache& icons;
    DesktopCapture& desktopCapture;
    MotionPreference& motion;
};

// The wall's content, bound to the store and the settings. Outlives the window that it is loaded into; main thread.
class WallContent : public OverlayContent {
public:
    explicit WallContent(const WallServices& services);
    ~WallContent() override;

    // Looks at the desktop, where the wall is to show it.
    void prepare(const QScreen& screen) override;
    void load(OverlayWindow& window) override;
    void putAway() override;

private:
    WallServices m_services;
    std::unique_ptr<WallModel> m_model;
    std::unique_ptr<CategoryBarModel> m_categories;
    std::unique_ptr<WallStyle> m_style;
    std::unique_ptr<DesktopBackdrop> m_backdrop;
};

} // namespace zelmo
