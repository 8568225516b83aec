#pragma once

#include "desktop/WallOnScreen.h"

#include <QColor>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QFile>

#include <array>

namespace zelmo::test {

inline constexpr xcb_keysym_t shiftKey = 0xffe1;
inline constexpr xcb_keysym_t rightKey = 0xff53;
inline constexpr xcb_keysym_t letterW = 0x0077;

// A desktop on which the program runs, with its wall put away again.
class SettingsOnScreen {
public:
    explicit SettingsOnScreen(const DesktopOptions& options = {}) : session(DesktopSession::start(options)) {
        if (!session)
            return;
        session->installEntry(QStringLiteral("Notes"));
        session->installEntry(QStringLiteral("Mail"));
        connection.emplace(QDBusConnection::connectToBus(
            session->environment().value(QStringLiteral("DBUS_SESSION_BUS_ADDRESS")), QStringLiteral("desktop")));
    }
    ~SettingsOnScreen() {
        connection.reset();
        QDBusConnection::disconnectFromBus(QStringLiteral("desktop"));
    }
    SettingsOnScreen(const SettingsOnScreen&) = delete;
    SettingsOnScreen& operator=(const SettingsOnScreen&) = delete;

    bool start(int cards) {
        if (!session)
            return false;
        wall = std::make_unique<WallOnScreen>(*session);
        return wall->waitForCards(cards) && wall->hide();
    }
    bool ask() {
        QDBusMessage message = QDBusMessage::createMethodCall(
            QStringLiteral("org.zelmo.Zelmo"), QStringLiteral("/org/zelmo/Zelmo"),
            QStringLiteral("org.freedesktop.Application"), QStringLiteral("ActivateAction"));
        message.setArguments({QStringLiteral("settings"), QVariant(QVariantList()), QVariantMap()});
        return connection->call(message).type() == QDBusMessage::ReplyMessage;
    }
    std::optional<xcb_window_t> window() const {
        return session->display().viewableWindow(QStringLiteral("Zelmo Settings"));
    }
    bool waitUntilShown() const {
        return DesktopSession::waitFor([this] {
            const auto shown = window();
            return shown && session->display().focusedWindow() == *shown;
        });
    }
    // With its form painted and ready for keys.
    bool waitUntilReady() const {
        return waitUntilShown() && DesktopSession::waitFor([this] { return runsOfControls().size() >= 2; });
    }
    bool open() { return ask() && waitUntilReady(); }
    // The wall shrinks, seen or not, when the settings open, and goes at the end of that even if it is shown again
    // before. Who shows it afterwards opens them from the wall, where the end is to be seen.
    bool openFromTheWall() {
        wall->pressShortcut(altKey);
        return wall->waitUntilShown() && ask() && wall->waitUntilGone() && waitUntilReady();
    }
    bool waitUntilGone() const {
        return DesktopSession::waitFor([this] { return !window().has_value(); });
    }
    QRect place() const {
        const auto shown = window();
        return shown ? session->display().geometry(*shown).value_or(QRect()) : QRect();
    }
    QImage picture() const { return session->display().screenshot().copy(place()); }

    // From top to bottom, the places of what is as grey as a list's button, some way from the right edge.
    QList<QRect> runsOfControls() const {
        const QImage shown = picture();
        const int x = shown.width() - 40;
        QList<QRect> runs;
        for (int y = 0, first = -1; y < shown.height() && x > 0; ++y) {
            const int gray = qGray(shown.pixel(x, y));
            const bool isControl = gray > 236 && gray < 244 && shown.pixelColor(x, y).saturation() < 3;
            if (isControl && first < 0)
                first = y;
            if (!isControl && first >= 0) {
                if (y - first >= 20 && y - first <= 30)
                    runs.append(QRect(place().left() + x, place().top() + first, 1, y - first));
                first = -1;
            }
        }
        return runs;
    }
    // Of letters, whose edges are mixed with their ground.
    int orangePixels() const {
        return count([](QRgb pixel) {
            return qRed(pixel) > 150 && qRed(pixel) < 240 && qGreen(pixel) < 180 && qBlue(pixel) < 110 &&
                   qRed(pixel) - qBlue(pixel) > 100;
        });
    }
    int checkmarkPixels() const {
        return count([](QRgb pixel) { return (pixel & 0xffffffU) == (qRgb(0x24, 0x8a, 0x3d) & 0xffffffU); });
    }
    QByteArray stored() const {
        QFile file(session->home() + QStringLiteral("/.config/zelmo/preferences.plist"));
        return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
    }
    void type(xcb_keysym_t key, int times = 1) const {
        for (int i = 0; i < times; ++i)
            session->display().typeKey(key);
    }
    void typeWith(xcb_keysym_t modifier, xcb_keysym_t key, int times = 1) const {
        session->display().holdKey(modifier);
        type(key, times);
        session->display().releaseKey(modifier);
    }
    bool hasState(xcb_window_t window, const QByteArray& name) const {
        xcb_connection_t* server = session->display().connection();
        auto* atom = xcb_intern_atom_reply(
            server, xcb_intern_atom(server, 0, static_cast<std::uint16_t>(name.size()), name.constData()), nullptr);
        const QByteArray number(reinterpret_cast<const char*>(&atom->atom), sizeof atom->atom);
        std::free(atom);
        return session->display().property(window, "_NET_WM_STATE").contains(number);
    }
    // As a person does who drags it by its frame.
    void moveWindow(const QRect& place) const {
        const std::array<std::uint32_t, 4> values{
            static_cast<std::uint32_t>(place.left()), static_cast<std::uint32_t>(place.top()),
            static_cast<std::uint32_t>(place.width()), static_cast<std::uint32_t>(place.height())};
        xcb_configure_window(session->display().connection(), *window(),
                             XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y | XCB_CONFIG_WINDOW_WIDTH |
                                 XCB_CONFIG_WINDOW_HEIGHT,
                             values.data());
        session->display().synchronize();
    }

private:
    template <typename Predicate>
    int count(Predicate predicate) const {
        const QImage shown = picture();
        int found = 0;
        for (int y = 0; y < shown.height(); ++y) {
            for (int x = 0; x < shown.width(); ++x)
                found += predicate(shown.pixel(x, y)) ? 1 : 0;
        }
        return found;
    }

public:
    std::unique_ptr<DesktopSession> session;
    std::optional<QDBusConnection> connection;
    std::unique_ptr<WallOnScreen> wall;
};

} // namespace zelmo::test
