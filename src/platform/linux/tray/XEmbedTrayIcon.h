#pragma once

#include "menubar/StatusItem.h"
#include "platform/linux/tray/RenderedIcon.h"

#include <QObject>
#include <QSize>

#include <optional>
#include <xcb/xcb.h>

namespace zelmo {

class X11Connection;

// The program's icon as a small window that the desktop's tray takes into itself, for trays without a bus: in whichever
// tray has the screen's tray selection, and again in the one that has it next. What a tray does to the window at the
// wrong time comes to nothing. Owned by the tray item; main thread.
class XEmbedTrayIcon : public QObject, public StatusItem {
    Q_OBJECT

public:
    // The largest picture that is drawn, in pixels, however large the tray makes the window.
    static constexpr int largestSide = 192;

    // The connection outlives it, and nobody else chooses which events of the root come on it; null where there is no
    // X server.
    explicit XEmbedTrayIcon(X11Connection* connection);
    ~XEmbedTrayIcon() override;

    void setPainter(Painter painter) override;
    void setTitle(const QString& title) override;
    // Trays of this kind draw no menus.
    void setMenu(const QList<StatusMenuEntry>& menu) override;
    void setClickHandler(ClickHandler handler) override;
    void setVisibility(StatusItemVisibility visibility) override;

    bool isEmbedded() const { return m_isEmbedded; }

private:
    struct Visual {
        xcb_visualid_t id;
        std::uint8_t depth;
    };

    void handle(const xcb_generic_event_t& event);
    void handleMessage(const xcb_client_message_event_t& message);
    void handleButton(const xcb_button_release_event_t& button);
    void lookForTray();
    void dock();
    void createWindow();
    void destroyWindow();
    void askForSquare();
    void askForSide(int side);
    void paint();
    // The root's, or the one that the tray asks for where the server has it.
    Visual wantedVisual() const;

    X11Connection* m_connection;
    xcb_atom_t m_selection = XCB_ATOM_NONE;
    StatusItemVisibility m_visibility = StatusItemVisibility::hidden;
    Painter m_painter;
    QString m_title;
    ClickHandler m_clicked;
    std::optional<RenderedIcon> m_rendering;
    xcb_window_t m_tray = XCB_WINDOW_NONE;
    xcb_window_t m_window = XCB_WINDOW_NONE;
    xcb_colormap_t m_colormap = XCB_COLORMAP_NONE;
    Visual m_visual{};
    QSize m_size;
    int m_askedSide = 0; // so that no tray can make it ask without end
    bool m_isEmbedded = false;
};

} // namespace zelmo
