#pragma once

#include "settings/SettingsForm.h"

#include <QQuickItem>
#include <QQuickWindow>

#include <memory>

class QQmlEngine;

namespace zelmo {

class ColorScheme;
class MotionPreference;
class SettingsPalette;

// The window of the settings. Its content exists while it is open: each opening starts with a fresh view, and a closed
// window holds no more than its place. Owned by its controller; main thread.
class SettingsWindow : public QQuickWindow {
    Q_OBJECT

public:
    // All of it outlives it.
    SettingsWindow(const SettingsServices& services, ColorScheme& scheme, const MotionPreference& motion);
    ~SettingsWindow() override;

    // Does nothing while the window is open.
    void loadContent();
    // Null while the window is closed.
    const SettingsForm* form() const { return m_form.get(); }
    const QQuickItem* view() const { return m_view.get(); }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool event(QEvent* event) override;

private:
    void freeContent();
    void layOut();

    SettingsServices m_services;
    ColorScheme& m_scheme;
    const MotionPreference& m_motion;
    std::unique_ptr<SettingsForm> m_form;
    std::unique_ptr<SettingsPalette> m_palette;
    std::unique_ptr<QQmlEngine> m_engine;
    std::unique_ptr<QQuickItem> m_view;
};

} // namespace zelmo
