#pragma once

#include <QImage>

#include <functional>
#include <memory>

namespace zelmo {

class LauncherHotKeyController;
class LauncherStore;
class SharedApplication;
class ZelmoAppDelegate;

struct ZelmoAppServices {
    SharedApplication& application;
    // Of so many points; null where nothing can be drawn. Called as long as the application object lives.
    std::function<QImage(int points)> renderIcon;
    std::function<std::unique_ptr<LauncherStore>()> makeStore;
    std::function<std::unique_ptr<LauncherHotKeyController>(LauncherStore&)> makeHotKeyController;
};

// The program as a whole: puts its icon up, declares how it is presented, and holds the one store, the one hot-key
// controller and the delegate, in the order in which they need each other. Made once by `main`; main thread.
class ZelmoApp {
public:
    static constexpr int iconPoints = 256;

    explicit ZelmoApp(const ZelmoAppServices& services);
    ~ZelmoApp();
    ZelmoApp(const ZelmoApp&) = delete;
    ZelmoApp& operator=(const ZelmoApp&) = delete;

    LauncherStore& launcherStore() const { return *m_launcherStore; }
    LauncherHotKeyController& hotKeyController() const { return *m_hotKeyController; }
    ZelmoAppDelegate& appDelegate() const { return *m_appDelegate; }

private:
    std::unique_ptr<LauncherStore> m_launcherStore;
    std::unique_ptr<LauncherHotKeyController> m_hotKeyController;
    std::unique_ptr<ZelmoAppDelegate> m_appDelegate;
};

} // namespace zelmo
