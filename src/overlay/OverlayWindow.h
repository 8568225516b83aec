#pragma once

#include <QQuickView>

#include <functional>

namespace zelmo {

// The borderless window that the wall is drawn in. Made and owned by the window controller; its
// content is loaded into it from outside. Main thread.
class OverlayWindow : public QQuickView {
    Q_OBJECT

public:
    OverlayWindow();

    // Called for Escape, which never reaches the content.
    std::function<void()> onEscape;
    // Called before the window closes, as by the window manager's menu.
    std::function<void()> onClose;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
};

} // namespace zelmo
