#pragma once

#include <QQuickWindow>

#include <functional>
#include <memory>

namespace zelmo {

// The borderless window that the wall is drawn in. Made and owned by the window controller; its
// content is loaded into it from outside. Main thread.
class OverlayWindow : public QQuickWindow {
    Q_OBJECT

public:
    OverlayWindow();
    ~OverlayWindow() override;

    QQuickItem* rootItem() const { return m_root.get(); }
    // Fills the window.
    void setRootItem(std::unique_ptr<QQuickItem> item);

    // Called for Escape, which never reaches the content.
    std::function<void()> onEscape;
    // Called before the window closes, as by the window manager's menu.
    std::function<void()> onClose;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    std::unique_ptr<QQuickItem> m_root;
};

} // namespace zelmo
