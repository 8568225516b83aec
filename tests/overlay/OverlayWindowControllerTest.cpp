#include "overlay/OverlayWindowController.h"
#include "overlay/CollapseWindow.h"
#include "overlay/HideAnimation.h"
#include "overlay/OverlayFakes.h"
#include "support/CatalogFakes.h"
#include "support/EndsTheProgram.h"

#include <QElapsedTimer>
#include <QQuickItem>
#include <QSignalSpy>

using namespace zelmo;
using namespace zelmo::test;

namespace {

constexpr PresentationOptions hidesDockAndMenuBar =
    PresentationOption::autoHideDock | PresentationOption::autoHideMenuBar;

// A controller on fakes. The store is given a wall of its own, so that what the controller asks of it can be told.
class Fixture {
public:
    Fixture()
        : controller(*store.store, {.mainScreen = screen,
                                    .keyboardBuffer = keyboard,
                                    .presentation = presentation,
                                    .motion = motion,
                                    .content = content}) {}

    OverlayWindow& window() { return controller.window(); }
    CollapseWindow* collapse() {
        for (QWindow* candidate : QGuiApplication::allWindows()) {
            if (auto* found = qobject_cast<CollapseWindow*>(candidate))
                return found;
        }
        return nullptr;
    }
    bool waitUntilHidden() {
        return QTest::qWaitFor([this] { return !controller.isHiding(); });
    }
    void press(Qt::Key key) { QTest::keyClick(&window(), key); }

    // The state of the table of states.
    QString state() {
        return QStringLiteral("%1%2%3%4")
            .arg(window().isVisible() ? u"visible" : u"gone", controller.isHiding() ? u" hiding" : u"",
                 controller.hasEscapeMonitor() ? u" monitor" : u"",
                 controller.previousPresentationOptions() ? u" saved" : u"");
    }

    QStringList log;
    StoreFixture store;
    FakeMainScreen screen;
    FakeKeyboardBuffer keyboard;
    FakePresentation presentation{log};
    FakeMotion motion;
    FakeContent content{log};
    OverlayWindowController controller;
};

} // namespace

class OverlayWindowControllerTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aBuiltWindowIsNotShown() {
        Fixture fixture;
        QCOMPARE(fixture.state(), QStringLiteral("gone"));
        QCOMPARE(fixture.window().geometry(), fixture.screen.screen->geometry());
        QVERIFY(fixture.window().flags().testFlag(Qt::FramelessWindowHint));
        QVERIFY(fixture.window().flags().testFlag(Qt::WindowStaysOnTopHint));
        QVERIFY(fixture.log.isEmpty());
    }

    void withoutAScreenThereIsNoWall() {
        QVERIFY(endsTheProgram([] {
            QStringList log;
            const StoreFixture store;
            FakeMainScreen screen;
            screen.screen = nullptr;
            FakeKeyboardBuffer keyboard;
            FakePresentation presentation(log);
            FakeMotion motion;
            FakeContent content(log);
            const OverlayWindowController controller(*store.store, {.mainScreen = screen,
                                                                    .keyboardBuffer = keyboard,
                                                                    .presentation = presentation,
                                                                    .motion = motion,
                                                                    .content = content});
        }));
    }

    void theStatesFollowEachOther() {
        Fixture fixture;
        fixture.controller.show();
        QCOMPARE(fixture.state(), QStringLiteral("visible monitor saved"));
        QCOMPARE(fixture.window().opacity(), 1.0);
        QCOMPARE(fixture.window().geometry(), fixture.screen.screen->geometry());
        QCOMPARE(fixture.log,
                 (QStringList{QStringLiteral("prepare"), QStringLiteral("presentation 5"), QStringLiteral("load")}));
        fixture.log.clear();
        fixture.controller.hide();
        QVERIFY(fixture.controller.isHiding());
        QVERIFY(!fixture.controller.hasEscapeMonitor());
        QVERIFY(!fixture.controller.previousPresentationOptions());
        // Given back before the wall has shrunk.
        QCOMPARE(fixture.log, QStringList{QStringLiteral("presentation 0")});
        fixture.controller.hide();
        QCOMPARE(fixture.log, QStringList{QStringLiteral("presentation 0")});
        QVERIFY(fixture.waitUntilHidden());
        QCOMPARE(fixture.state(), QStringLiteral("gone"));
        QCOMPARE(fixture.window().opacity(), 1.0);
        QCOMPARE(fixture.window().geometry(), fixture.screen.screen->geometry());
        QCOMPARE(fixture.log, (QStringList{QStringLiteral("presentation 0"), QStringLiteral("put away")}));
        fixture.controller.show();
        QCOMPARE(fixture.state(), QStringLiteral("visible monitor saved"));
        // The content is loaded once.
        QCOMPARE(fixture.log.mid(2), (QStringList{QStringLiteral("prepare"), QStringLiteral("presentation 5")}));
    }

    void aShowWhileItHidesEndsHidden() {
        Fixture fixture;
        fixture.controller.show();
        fixture.controller.hide();
        fixture.controller.show();
        QCOMPARE(fixture.state(), QStringLiteral("visible monitor saved"));
        QVERIFY(!fixture.collapse()->isVisible());
        // The screen still shows the wall, so there is nothing to be taken from it.
        QCOMPARE(fixture.log.count(QStringLiteral("prepare")), 1);
        QTRY_VERIFY(!fixture.window().isVisible());
        QCOMPARE(fixture.log.count(QStringLiteral("put away")), 1);
        // What the second show did stays done until the next hide.
        QCOMPARE(fixture.state(), QStringLiteral("gone monitor saved"));
        fixture.controller.hide();
        QVERIFY(fixture.controller.isHiding());
        QVERIFY(fixture.waitUntilHidden());
        QCOMPARE(fixture.state(), QStringLiteral("gone"));
    }

    void twoShowsKeepWhatTheFirstOneSaved() {
        Fixture fixture;
        fixture.presentation.standard = PresentationOption::autoHideDock;
        fixture.presentation.setFromOutside(PresentationOption::autoHideDock);
        fixture.controller.show();
        QCOMPARE(fixture.presentation.options(), hidesDockAndMenuBar);
        fixture.controller.show();
        QCOMPARE(fixture.controller.previousPresentationOptions(),
                 PresentationOptions(PresentationOption::autoHideDock));
        fixture.controller.hide();
        QCOMPARE(fixture.presentation.options(), PresentationOptions(PresentationOption::autoHideDock));
        QCOMPARE(fixture.log.count(QStringLiteral("prepare")), 1);
    }

    void escapeHidesThroughTheStore() {
        Fixture fixture;
        LauncherStore& store = *fixture.store.store;
        store.showOverlay();
        store.setIsEditingApps(true);
        fixture.controller.show();
        fixture.press(Qt::Key_Escape);
        QVERIFY(!store.overlayIsVisible());
        QVERIFY(!store.isEditingApps());
        fixture.press(Qt::Key_Escape);
        QCOMPARE(fixture.store.log.count(QStringLiteral("hide")), 2);
    }

    // The window has it when there is no monitor.
    void escapeOnTheWindowItselfHidesToo() {
        Fixture fixture;
        fixture.store.store->showOverlay();
        fixture.window().show();
        QVERIFY(!fixture.controller.hasEscapeMonitor());
        fixture.press(Qt::Key_Escape);
        QVERIFY(!fixture.store.store->overlayIsVisible());
    }

    void otherKeysReachTheContent() {
        Fixture fixture;
        fixture.controller.show();
        fixture.window().contentItem()->setFocus(true);
        class Listener : public QObject {
        public:
            bool eventFilter(QObject*, QEvent* event) override {
                if (event->type() == QEvent::KeyPress)
                    keys.append(static_cast<QKeyEvent*>(event)->key());
                return false;
            }
            QList<int> keys;
        } listener;
        fixture.window().contentItem()->installEventFilter(&listener);
        fixture.window().requestActivate();
        QVERIFY(QTest::qWaitForWindowActive(&fixture.window()));
        fixture.press(Qt::Key_A);
        fixture.press(Qt::Key_Escape);
        fixture.press(Qt::Key_Return);
        QCOMPARE(listener.keys, (QList<int>{Qt::Key_A, Qt::Key_Return}));
    }

    void theWallShrinksIntoABarBelowTheTopEdge() {
        Fixture fixture;
        fixture.controller.show();
        QVERIFY(QTest::qWaitForWindowExposed(&fixture.window()));
        const QRect screen = fixture.screen.screen->geometry();
        QSignalSpy widths(fixture.collapse(), &QWindow::widthChanged);
        QElapsedTimer clock;
        clock.start();
        fixture.controller.hide();
        QVERIFY(fixture.collapse()->isVisible());
        QCOMPARE(fixture.collapse()->geometry(), screen);
        QRect last;
        double lastOpacity = 1;
        QVERIFY(QTest::qWaitFor([&] {
            if (fixture.collapse()->isVisible()) {
                last = fixture.collapse()->geometry();
                lastOpacity = fixture.collapse()->opacity();
            }
            return !fixture.controller.isHiding();
        }));
        QVERIFY(clock.elapsed() >= 240);
        QVERIFY(!fixture.collapse()->isVisible());
        // On its way, on the line to where it ends.
        QVERIFY(widths.count() >= 3);
        QVERIFY(last.width() < screen.width() && last.width() >= 76);
        QVERIFY(std::abs(last.center().x() - screen.center().x()) <= 1);
        QVERIFY(lastOpacity < 1 && lastOpacity >= 0.08);
        // Its content was never laid out for another size.
        QCOMPARE(fixture.window().size(), screen.size());
    }

    void lessMovementMeansNoShrinking() {
        Fixture fixture;
        fixture.motion.reduces = true;
        fixture.controller.show();
        fixture.controller.hide();
        QVERIFY(fixture.controller.isHiding());
        QVERIFY(!fixture.collapse()->isVisible());
        QVERIFY(!fixture.window().isVisible());
        QVERIFY(fixture.waitUntilHidden());
    }

    void withoutAScreenTheFrameStays() {
        Fixture fixture;
        fixture.screen.screen = nullptr;
        const QRect frame = fixture.window().geometry();
        fixture.controller.show();
        QVERIFY(fixture.window().isVisible());
        QCOMPARE(fixture.window().geometry(), frame);
        QVERIFY(!fixture.log.contains(QStringLiteral("prepare")));
        fixture.controller.hide();
        QVERIFY(fixture.waitUntilHidden());
        QCOMPARE(fixture.window().geometry(), frame);
    }

    void theEndOfTheControllerEndsTheHide() {
        auto fixture = std::make_unique<Fixture>();
        fixture->controller.show();
        fixture->controller.hide();
        fixture.reset();
        QTest::qWait(300);
    }
};

QTEST_MAIN(OverlayWindowControllerTest)
#include "OverlayWindowControllerTest.moc"
