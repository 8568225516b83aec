#include "platform/linux/tray/X11PanelDesktop.h"

#include "Settle.h"

#include <QGuiApplication>
#include <QTest>
#include <QWindow>

using namespace zelmo;
using namespace zelmo::test;

namespace {

// A window on a desktop of its own, on which this program shows its windows.
class Watched {
public:
    Watched() : connection(X11Connection::open()), desktop(connection.get()) {
        window.setTitle(QStringLiteral("Watched"));
        window.setGeometry(100, 100, 200, 100);
    }

    void show() {
        window.create();
        desktop.watch(window, {.pressed = [this] { ++presses; }, .focusLost = [this] { ++losses; }});
        window.show();
        window.requestActivate();
        desktop.bringToFront(window, {});
    }
    std::unique_ptr<X11Connection> connection;
    X11PanelDesktop desktop;
    QWindow window;
    int presses = 0;
    int losses = 0;
};

} // namespace

class X11PanelDesktopTest : public QObject {
    Q_OBJECT

public:
    explicit X11PanelDesktopTest(DesktopSession& session) : m_session(session) {}

private Q_SLOTS:
    void aWindowGetsTheKeyboardAndItsLossIsToldOf() {
        Watched watched;
        watched.show();
        QVERIFY(waitForFocus(watched.window));
        settle(*watched.connection);
        QCOMPARE(watched.losses, 0);
        QWindow other;
        other.show();
        watched.desktop.bringToFront(other, {});
        QVERIFY(DesktopSession::waitFor([&] { return watched.losses == 1; }));
    }

    void aWindowThatOpensAgainAtOnceHasNotLostTheKeyboard() {
        Watched watched;
        for (int round = 0; round < 30; ++round) {
            watched.show();
            QVERIFY(waitForFocus(watched.window));
            settle(*watched.connection);
            QCOMPARE(watched.losses, 0);
            watched.desktop.endWatch();
            watched.window.hide();
        }
        settle(*watched.connection);
        QCOMPARE(watched.losses, 0);
    }

    void aGrabOfTheKeyboardIsNoLoss() {
        Watched watched;
        watched.show();
        QVERIFY(waitForFocus(watched.window));
        settle(*watched.connection);
        // Takes the keyboard and lets it go.
        QVERIFY(!m_session.display().keyboardIsGrabbed());
        settle(*watched.connection);
        QCOMPARE(watched.losses, 0);
    }

    void pressesAnywhereAreHeardOf() {
        Watched watched;
        watched.show();
        QVERIFY(waitForFocus(watched.window));
        m_session.display().click({700, 500});
        QVERIFY(DesktopSession::waitFor([&] { return watched.presses == 1; }));
        watched.desktop.endWatch();
        settle(*watched.connection);
        m_session.display().click({700, 500});
        settle(*watched.connection);
        QCOMPARE(watched.presses, 1);
    }

    // As a menu of another program has it.
    void pressesAreHeardOfWhileAnotherHasThePointer() {
        Watched watched;
        watched.show();
        settle(*watched.connection);
        const XDisplay& display = m_session.display();
        std::free(xcb_grab_pointer_reply(display.connection(),
                                         xcb_grab_pointer(display.connection(), 0, display.root(),
                                                          XCB_EVENT_MASK_BUTTON_PRESS, XCB_GRAB_MODE_ASYNC,
                                                          XCB_GRAB_MODE_ASYNC, XCB_NONE, XCB_NONE, XCB_CURRENT_TIME),
                                         nullptr));
        display.click({700, 500});
        QVERIFY(DesktopSession::waitFor([&] { return watched.presses == 1; }));
        xcb_ungrab_pointer(display.connection(), XCB_CURRENT_TIME);
        display.synchronize();
    }

    void theTimeOfTheTokenIsTheWindows() {
        Watched watched;
        watched.window.show();
        const QByteArray time = QByteArray::number(watched.connection->serverTime() - 1);
        watched.desktop.bringToFront(watched.window, "zelmo-tray_TIME" + time);
        const auto userTime = [&] {
            return watched.connection->numbers(static_cast<xcb_window_t>(watched.window.winId()), "_NET_WM_USER_TIME")
                .value(0);
        };
        QVERIFY(DesktopSession::waitFor([&] { return userTime() == time.toUInt(); }));
        // Tokens of another kind tell no time.
        watched.desktop.bringToFront(watched.window, "f0e1-d2c3");
        QVERIFY(DesktopSession::waitFor([&] { return userTime() > time.toUInt(); }));
    }

    void withoutAServerTheToolkitTellsOfTheLoss() {
        X11PanelDesktop desktop(nullptr);
        QWindow window;
        window.show();
        window.requestActivate();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        int losses = 0;
        desktop.watch(window, {.pressed = {}, .focusLost = [&] { ++losses; }});
        QWindow other;
        other.show();
        other.requestActivate();
        QVERIFY(DesktopSession::waitFor([&] { return losses == 1; }));
        QVERIFY(!desktop.isComposited());
    }

    void aCompositorIsNoticed() {
        const Watched watched;
        QVERIFY(!watched.desktop.isComposited());
        m_session.startProgram(QStringLiteral("xcompmgr"));
        QVERIFY(DesktopSession::waitFor([&] { return watched.desktop.isComposited(); }));
    }

private:
    bool waitForFocus(const QWindow& window) const {
        return DesktopSession::waitFor([&] { return m_session.display().focusedWindow() == window.winId(); });
    }

    DesktopSession& m_session;
};

int main(int argc, char* argv[]) {
    // Before the application object, which looks for the server at once.
    QCoreApplication::setAttribute(Qt::AA_DisableSessionManager);
    const auto session = DesktopSession::start();
    if (!session)
        return 1;
    qputenv("DISPLAY", session->displayName().toLatin1());
    qputenv("QT_QPA_PLATFORM", "xcb");
    int result = 0;
    {
        const QGuiApplication application(argc, argv);
        X11PanelDesktopTest test(*session);
        result = QTest::qExec(&test, argc, argv);
    }
    return result;
}

#include "X11PanelDesktopTest.moc"
