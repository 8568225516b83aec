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

protected:
    void keyPressEvent(QKeyEvent* event) override;
};

} // namespace zelmo
