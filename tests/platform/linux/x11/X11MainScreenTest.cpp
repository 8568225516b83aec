#include "RunningScreenProgram.h"

#include <QTest>

using namespace zelmo::test;

namespace {

const QString mainQuestion = QStringLiteral("main");
const QString leftScreen = QStringLiteral("left");
const QString rightScreen = QStringLiteral("right");

xcb_window_t showWindow(const DesktopSession& session, QPoint place) {
    xcb_connection_t* connection = session.display().connection();
    const xcb_window_t window = xcb_generate_id(connection);
    xcb_create_window(connection, XCB_COPY_FROM_PARENT, window, session.display().root(),
                      static_cast<std::int16_t>(place.x()), static_cast<std::int16_t>(place.y()), 200, 100, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
    // That it was placed by the user, so that no window manager places it.
    const std::uint32_t hints[18]{1};
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_NORMAL_HINTS, XCB_ATOM_WM_SIZE_HINTS, 32,
                        18, hints);
    xcb_map_window(connection, window);
    session.display().synchronize();
    return window;
}

} // namespace

class X11MainScreenTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theFocusedWindowsScreenIsTheMainOne_data() { scales(); }
    void theFocusedWindowsScreenIsTheMainOne() {
        const auto session = startSession();
        QVERIFY(session);
        session->display().movePointer({100, 100});
        const xcb_window_t window = showWindow(*session, {1000, 200});
        QVERIFY(DesktopSession::waitFor([&] {
            session->display().activate(window);
            return session->display().activeWindow() == window;
        }));
        const RunningScreenProgram program(*session);
        QCOMPARE(program.ask(mainQuestion), rightScreen);
    }

    void withoutAFocusedWindowThePointersScreenIsTheMainOne_data() { scales(); }
    void withoutAFocusedWindowThePointersScreenIsTheMainOne() {
        const auto session = startSession();
        QVERIFY(session);
        QCOMPARE(session->display().activeWindow(), std::nullopt);
        const RunningScreenProgram program(*session);
        session->display().movePointer({1000, 200});
        QCOMPARE(program.ask(mainQuestion), rightScreen);
        session->display().movePointer({100, 200});
        QCOMPARE(program.ask(mainQuestion), leftScreen);
    }

    void theMainScreenMovesWhenItIsUnplugged() {
        const auto session = startSession();
        QVERIFY(session);
        const RunningScreenProgram program(*session);
        session->display().movePointer({1000, 200});
        QCOMPARE(program.ask(mainQuestion), rightScreen);
        removeMonitor(session->display(), Monitor::right);
        QVERIFY(program.waitForAnswer(mainQuestion, leftScreen));
    }

private:
    static void scales() {
        QTest::addColumn<QString>("scale");
        QTest::newRow("one to one") << QStringLiteral("1");
        QTest::newRow("two to a point") << QStringLiteral("2");
    }
    static std::unique_ptr<DesktopSession> startSession() {
        auto session = DesktopSession::start({.screen = {1600, 600}, .monitors = Monitors::leftPrimary});
        if (session && QTest::currentDataTag()) {
            QFETCH(QString, scale);
            session->environment().insert(QStringLiteral("QT_SCALE_FACTOR"), scale);
        }
        return session;
    }
};

QTEST_GUILESS_MAIN(X11MainScreenTest)
#include "X11MainScreenTest.moc"
