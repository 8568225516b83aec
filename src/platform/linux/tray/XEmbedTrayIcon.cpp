#include "platform/linux/tray/XEmbedTrayIcon.h"

#include "platform/linux/x11/X11Connection.h"

#include <QPainter>

#include <array>

namespace zelmo {

namespace {

constexpr std::uint8_t sentByClient = 0x80;
constexpr std::uint32_t requestDock = 0;
constexpr std::uint32_t embedVersion = 0;
constexpr std::uint32_t embedMapped = 1;
constexpr int usualSide = 24; // until the tray says how large

template <typename Event>
const Event& as(const xcb_generic_event_t& event) {
    return reinterpret_cast<const Event&>(event);
}

const xcb_screen_t& screenOf(const X11Connection& connection) {
    xcb_screen_iterator_t screens = xcb_setup_roots_iterator(xcb_get_setup(connection.get()));
    while (screens.rem > 1 && screens.data->root != connection.root())
        xcb_screen_next(&screens);
    return *screens.data;
}

void select(const X11Connection& connection, xcb_window_t window, std::uint32_t events) {
    xcb_change_window_attributes(connection.get(), window, XCB_CW_EVENT_MASK, &events);
}

xcb_window_t ownerOf(const X11Connection& connection, xcb_atom_t selection) {
    const XcbReply<xcb_get_selection_owner_reply_t> reply(
        xcb_get_selection_owner_reply(connection.get(), xcb_get_selection_owner(connection.get(), selection), nullptr));
    return reply ? reply->owner : xcb_window_t{XCB_WINDOW_NONE};
}

void setText(const X11Connection& connection, xcb_window_t window, const char* name, const char* type,
             const QByteArray& text) {
    xcb_change_property(connection.get(), XCB_PROP_MODE_REPLACE, window, connection.atom(name), connection.atom(type),
                        8, static_cast<std::uint32_t>(text.size()), text.constData());
}

} // namespace

XEmbedTrayIcon::XEmbedTrayIcon(X11Connection* connection) : m_connection(connection) {
    if (m_connection)
        connect(m_connection, &X11Connection::arrived, this, &XEmbedTrayIcon::handle);
}

XEmbedTrayIcon::~XEmbedTrayIcon() {
    XEmbedTrayIcon::setVisibility(StatusItemVisibility::hidden);
}

void XEmbedTrayIcon::setPainter(Painter painter) {
    m_painter = std::move(painter);
    paint();
}

void XEmbedTrayIcon::setTitle(const QString& title) {
    m_title = title;
    if (m_window == XCB_WINDOW_NONE)
        return;
    setText(*m_connection, m_window, "_NET_WM_NAME", "UTF8_STRING", m_title.toUtf8());
    setText(*m_connection, m_window, "WM_NAME", "STRING", m_title.toLatin1());
    m_connection->flush();
}

void XEmbedTrayIcon::setMenu(const QList<StatusMenuEntry>&) {}

void XEmbedTrayIcon::setClickHandler(ClickHandler handler) {
    m_clicked = std::move(handler);
}

void XEmbedTrayIcon::setVisibility(StatusItemVisibility visibility) {
    if (!m_connection || visibility == m_visibility)
        return;
    m_visibility = visibility;
    if (visibility == StatusItemVisibility::hidden) {
        select(*m_connection, m_connection->root(), XCB_EVENT_MASK_NO_EVENT);
        m_tray = XCB_WINDOW_NONE;
        destroyWindow();
        return;
    }
    if (m_selection == XCB_ATOM_NONE) {
        m_selection = m_connection->atom("_NET_SYSTEM_TRAY_S" + QByteArray::number(m_connection->screenNumber()));
        m_rendering = RenderedIcon::create(*m_connection);
    }
    // A tray that takes the selection tells so there.
    select(*m_connection, m_connection->root(), XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    lookForTray();
}

void XEmbedTrayIcon::lookForTray() {
    destroyWindow();
    m_tray = ownerOf(*m_connection, m_selection);
    if (m_tray == XCB_WINDOW_NONE)
        return;
    select(*m_connection, m_tray, XCB_EVENT_MASK_STRUCTURE_NOTIFY);
    // One that has gone in between says nothing of its end any more; who comes after it makes itself known.
    if (ownerOf(*m_connection, m_selection) == m_tray)
        dock();
    else
        m_tray = XCB_WINDOW_NONE;
}

XEmbedTrayIcon::Visual XEmbedTrayIcon::wantedVisual() const {
    const xcb_screen_t& screen = screenOf(*m_connection);
    const QList<std::uint32_t> wanted = m_connection->numbers(m_tray, "_NET_SYSTEM_TRAY_VISUAL");
    for (auto depth = xcb_screen_allowed_depths_iterator(&screen); depth.rem && !wanted.isEmpty();
         xcb_depth_next(&depth)) {
        for (auto visual = xcb_depth_visuals_iterator(depth.data); visual.rem; xcb_visualtype_next(&visual)) {
            if (visual.data->visual_id == wanted.first())
                return {.id = wanted.first(), .depth = depth.data->depth};
        }
    }
    return {.id = screen.root_visual, .depth = screen.root_depth};
}

void XEmbedTrayIcon::createWindow() {
    constexpr std::uint32_t events = XCB_EVENT_MASK_EXPOSURE | XCB_EVENT_MASK_STRUCTURE_NOTIFY |
                                     XCB_EVENT_MASK_BUTTON_PRESS | XCB_EVENT_MASK_BUTTON_RELEASE;
    xcb_connection_t* connection = m_connection->get();
    const xcb_screen_t& screen = screenOf(*m_connection);
    m_visual = wantedVisual();
    m_size = QSize(usualSide, usualSide);
    m_window = xcb_generate_id(connection);
    if (m_visual.id == screen.root_visual) {
        const std::array<std::uint32_t, 2> values{XCB_BACK_PIXMAP_PARENT_RELATIVE, events};
        xcb_create_window(connection, XCB_COPY_FROM_PARENT, m_window, screen.root, -usualSide, -usualSide, usualSide,
                          usualSide, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                          XCB_CW_BACK_PIXMAP | XCB_CW_EVENT_MASK, values.data());
        return;
    }
    m_colormap = xcb_generate_id(connection);
    xcb_create_colormap(connection, XCB_COLORMAP_ALLOC_NONE, m_colormap, screen.root, m_visual.id);
    const std::array<std::uint32_t, 4> values{0, 0, events, m_colormap};
    xcb_create_window(connection, m_visual.depth, m_window, screen.root, -usualSide, -usualSide, usualSide, usualSide,
                      0, XCB_WINDOW_CLASS_INPUT_OUTPUT, m_visual.id,
                      XCB_CW_BACK_PIXEL | XCB_CW_BORDER_PIXEL | XCB_CW_EVENT_MASK | XCB_CW_COLORMAP, values.data());
}

void XEmbedTrayIcon::dock() {
    createWindow();
    xcb_connection_t* connection = m_connection->get();
    const xcb_atom_t info = m_connection->atom("_XEMBED_INFO");
    const std::array<std::uint32_t, 2> embedding{embedVersion, embedMapped};
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, m_window, info, info, 32, embedding.size(),
                        embedding.data());
    m_askedSide = 0;
    askForSide(usualSide);
    setText(*m_connection, m_window, "WM_CLASS", "STRING", QByteArray("zelmo\0Zelmo\0", 12));
    setTitle(m_title);
    xcb_client_message_event_t message{};
    message.response_type = XCB_CLIENT_MESSAGE;
    message.format = 32;
    message.window = m_tray;
    message.type = m_connection->atom("_NET_SYSTEM_TRAY_OPCODE");
    message.data.data32[0] = XCB_CURRENT_TIME;
    message.data.data32[1] = requestDock;
    message.data.data32[2] = m_window;
    xcb_send_event(connection, 0, m_tray, XCB_EVENT_MASK_NO_EVENT, reinterpret_cast<const char*>(&message));
    m_connection->flush();
}

// A tray knows how thick it is, and leaves it to its icons how much of its length they take.
void XEmbedTrayIcon::askForSquare() {
    constexpr std::uint32_t vertical = 1;
    if (!m_isEmbedded)
        return;
    const bool isVertical = m_connection->numbers(m_tray, "_NET_SYSTEM_TRAY_ORIENTATION").value(0) == vertical;
    askForSide(isVertical ? m_size.width() : m_size.height());
}

void XEmbedTrayIcon::askForSide(int side) {
    constexpr int smallestSide = 16;
    const int asked = std::clamp(side, smallestSide, largestSide);
    if (asked == m_askedSide)
        return;
    m_askedSide = asked;
    constexpr std::uint32_t withMinimumSize = 1U << 4;
    std::array<std::uint32_t, 18> hints{withMinimumSize};
    hints[5] = hints[6] = static_cast<std::uint32_t>(asked);
    xcb_change_property(m_connection->get(), XCB_PROP_MODE_REPLACE, m_window, XCB_ATOM_WM_NORMAL_HINTS,
                        XCB_ATOM_WM_SIZE_HINTS, 32, hints.size(), hints.data());
    m_connection->flush();
}

void XEmbedTrayIcon::destroyWindow() {
    if (m_window != XCB_WINDOW_NONE)
        xcb_destroy_window(m_connection->get(), m_window);
    if (m_colormap != XCB_COLORMAP_NONE)
        xcb_free_colormap(m_connection->get(), m_colormap);
    m_window = XCB_WINDOW_NONE;
    m_colormap = XCB_COLORMAP_NONE;
    m_isEmbedded = false;
    m_connection->flush();
}

// Errors of the server come here too, as events of type 0, and mean that a tray or the window has gone: of that other
// events tell.
void XEmbedTrayIcon::handle(const xcb_generic_event_t& event) {
    if (m_visibility == StatusItemVisibility::hidden)
        return;
    switch (event.response_type & ~sentByClient) {
    case XCB_CLIENT_MESSAGE:
        handleMessage(as<xcb_client_message_event_t>(event));
        return;
    case XCB_DESTROY_NOTIFY:
        if (m_tray != XCB_WINDOW_NONE && as<xcb_destroy_notify_event_t>(event).window == m_tray)
            lookForTray();
        else if (m_window != XCB_WINDOW_NONE && as<xcb_destroy_notify_event_t>(event).window == m_window)
            destroyWindow();
        return;
    case XCB_REPARENT_NOTIFY:
        if (as<xcb_reparent_notify_event_t>(event).window != m_window)
            return;
        m_isEmbedded = as<xcb_reparent_notify_event_t>(event).parent != m_connection->root();
        // Let go by its tray, it must not stand on the desktop by itself.
        if (!m_isEmbedded)
            destroyWindow();
        return;
    case XCB_CONFIGURE_NOTIFY:
        if (const auto& change = as<xcb_configure_notify_event_t>(event); change.window == m_window) {
            m_size = QSize(change.width, change.height);
            askForSquare();
        }
        return;
    case XCB_EXPOSE:
        if (const auto& exposed = as<xcb_expose_event_t>(event); exposed.window == m_window && exposed.count == 0)
            paint();
        return;
    case XCB_BUTTON_RELEASE:
        handleButton(as<xcb_button_release_event_t>(event));
        return;
    default:
        return;
    }
}

void XEmbedTrayIcon::handleMessage(const xcb_client_message_event_t& message) {
    if (message.format != 32 || message.window != m_connection->root() ||
        message.type != m_connection->atom("MANAGER") || message.data.data32[1] != m_selection)
        return;
    if (message.data.data32[2] != m_tray)
        lookForTray();
}

void XEmbedTrayIcon::handleButton(const xcb_button_release_event_t& button) {
    const bool isInside = QRect(QPoint(), m_size).contains(button.event_x, button.event_y);
    if (button.event != m_window || !isInside || !m_clicked ||
        (button.detail != XCB_BUTTON_INDEX_1 && button.detail != XCB_BUTTON_INDEX_3))
        return;
    const QPoint corner(button.root_x - button.event_x, button.root_y - button.event_y);
    // In the form of a token of the desktop, of which window managers read the time at the end.
    m_clicked({.place = QRect(corner, m_size), .activationToken = "zelmo-tray_TIME" + QByteArray::number(button.time)});
}

void XEmbedTrayIcon::paint() {
    if (!m_isEmbedded || !m_painter || !m_rendering)
        return;
    const int side = std::min({m_size.width(), m_size.height(), largestSide});
    if (side <= 0)
        return;
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    {
        QPainter painter(&image);
        m_painter(painter, QRectF(image.rect()));
    }
    xcb_clear_area(m_connection->get(), 0, m_window, 0, 0, 0, 0);
    m_rendering->draw(m_window, m_visual.id, {(m_size.width() - side) / 2, (m_size.height() - side) / 2}, image);
    m_connection->flush();
}

} // namespace zelmo
