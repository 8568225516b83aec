#pragma once

#include "settings/SettingsForm.h"

#include <memory>

namespace zelmo {

class ColorScheme;
class MainScreen;
class MotionPreference;
class ProgramActivation;
class SettingsWindow;

// What the controller needs besides what the settings change. All of it outlives the controller.
struct SettingsWindowServices {
    const MainScreen& mainScreen;
    ProgramActivation& activation;
    ColorScheme& colorScheme;
    const MotionPreference& motion;
};

// Holds the one window of the settings, which is built when it is first shown and kept with its place and size from
// then on. One instance for the process, made at start-up; main thread.
class AppSettingsWindowController {
public:
    // All of it outlives the controller.
    AppSettingsWindowController(const SettingsServices& services, const SettingsWindowServices& windowServices);
    ~AppSettingsWindowController();
    AppSettingsWindowController(const AppSettingsWindowController&) = delete;
    AppSettingsWindowController& operator=(const AppSettingsWindowController&) = delete;

    // In front of the others and with the focus, wherever it was.
    void showSettingsWindow();

    // Null until it is first shown.
    SettingsWindow* window() const { return m_window.get(); }

private:
    void build();

    SettingsServices m_services;
    SettingsWindowServices m_windowServices;
    std::unique_ptr<SettingsWindow> m_window;
};

} // namespace zelmo
