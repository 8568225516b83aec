#pragma once

#include "support/DesktopSession.h"

#include <QTest>

namespace zelmo::test {

// Where the middle of a card of the grid's first row is on the screen, with the default settings.
inline QPoint cardCenter(const DesktopSession& session, int column) {
    const int columns = 6;
    const int step = 154 + 22;
    const int left = (session.display().size().width() - (columns * step - 22)) / 2;
    return {left + column * step + 77, 346};
}

// The program under test, started on a desktop, and its wall as it is seen there.
class WallOnScreen {
public:
    explicit WallOnScreen(DesktopSession& session, const QString& program = QStringLiteral(ZELMO_PROGRAM),
                          const QStringList& arguments = {})
        : m_session(session), process(session.startProgram(program, arguments)) {}

    bool waitUntilShown() const {
        return DesktopSession::waitFor([this] {
            const auto window = m_session.display().viewableWindow(QStringLiteral("Zelmo"));
            return window && m_session.display().geometry(*window) == QRect(QPoint(0, 0), m_session.display().size()) &&
                   m_session.display().focusedWindow() == *window;
        });
    }
    // What is seen does not change for some frames.
    bool waitUntilPainted() const {
        return waitUntilShown() && DesktopSession::waitUntilSteady([this] { return m_session.display().screenshot(); });
    }
    // The first row shows so many cards and no more.
    bool waitForCards(int count) const {
        return waitUntilShown() && DesktopSession::waitFor([&] {
                   const QImage screen = m_session.display().screenshot();
                   return (count == 0 || showsCard(screen, count - 1)) && !showsCard(screen, count);
               });
    }
    // To the end of its shrinking: a wall that is shown before goes all the same.
    bool waitUntilGone() const {
        return DesktopSession::waitFor([this] {
            const XDisplay& display = m_session.display();
            return !display.viewableWindow(QStringLiteral("Zelmo")) &&
                   !display.viewableWindow(QStringLiteral("Collapse"));
        });
    }
    bool hide() const { return m_session.display().typeKey(escapeKey) && waitUntilGone(); }
    // Space with another key.
    void pressShortcut(xcb_keysym_t modifier = controlKey) const {
        m_session.display().holdKey(modifier);
        m_session.display().typeKey(spaceKey);
        m_session.display().releaseKey(modifier);
    }

private:
    // Nothing else in the grid's place is as bright as the name of a card.
    bool showsCard(const QImage& screen, int column) const {
        const QPoint center = cardCenter(m_session, column);
        for (int y = center.y() - 80; y < center.y() + 100; ++y) {
            for (int x = center.x() - 77; x < center.x() + 77; ++x) {
                if (qGray(screen.pixel(x, y)) > 200)
                    return true;
            }
        }
        return false;
    }

    DesktopSession& m_session;

public:
    QProcess& process;
};

} // namespace zelmo::test
