#pragma once

#include "settings/SettingsForm.h"

#include <QQuickView>

#include <memory>

namespace zelmo {

class ColorScheme;
class SettingsPalette;

// The window of the settings. Its content exists while it is open: each opening starts with a fresh view, and a closed
// window holds no more than its place. Owned by its controller; main thread.
class SettingsWindow : public QQuickView {
    Q_OBJECT

public:
    // Both outlive it.
    SettingsWindow(const SettingsServices& services, ColorScheme& scheme);
    ~SettingsWindow() override;

    // Does nothing while the window is open.
    void loadContent();
    // Null while the window is closed.
    const SettingsForm* form() const { return m_form.get(); }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    bool event(QEvent* event) override;

private:
    void freeContent();

    SettingsServices m_services;
    ColorScheme& m_scheme;
    std::unique_ptr<SettingsForm> m_form;
    std::unique_ptr<SettingsPalette> m_palette;
};

} // namespace zelmo
