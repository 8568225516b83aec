#include "ShortcutPresses.h"

#include <QTest>

#include <algorithm>
#include <csignal>

using namespace zelmo::test;

namespace {

constexpr xcb_keycode_t letterCode = 53;
constexpr xcb_keysym_t letterKey = 0x0078; // x

} // namespace

class X11HotKeyServiceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void eachPressArrivesOnce_data() { windowManagers(); }
    void eachPressArrivesOnce() {
        const auto session = startSession();
        QVERIFY(session);
        RunningHotKeyProgram program(*session);
        QCOMPARE(program.take("optionSpace"), assigned);
        for (int i = 1; i <= 4; ++i) {
            pressShortcut(*session);
            QVERIFY(program.waitForCount(pressed, i));
        }
        QCOMPARE(program.count(pressed), 4);
    }

    void eachChoiceHasItsModifier_data() {
        QTest::addColumn<xcb_keysym_t>("modifier");
        QTest::newRow("optionSpace") << altKey;
        QTest::newRow("controlSpace") << controlKey;
        QTest::newRow("commandSpace") << superKey;
    }
    void eachChoiceHasItsModifier() {
        QFETCH(xcb_keysym_t, modifier);
        const auto session = bareSession();
        QVERIFY(session);
        RunningHotKeyProgram program(*session);
        QVERIFY(!isRefusal(program.take(QTest::currentDataTag())));
        for (const xcb_keysym_t other : {altKey, controlKey, superKey}) {
            if (other != modifier)
                pressShortcut(*session, other);
        }
        pressShortcut(*session, modifier);
        QVERIFY(program.waitForCount(QStringLiteral("shown"), 1));
        QCOMPARE(program.count(pressed), 1);
    }

    void aHeldKeyIsOnePressAndTypesNothingIntoTheWall_data() { windowManagers(); }
    void aHeldKeyIsOnePressAndTypesNothingIntoTheWall() {
        const auto session = startSession();
        QVERIFY(session);
        const XDisplay& display = session->display();
        RunningHotKeyProgram program(*session);
        QCOMPARE(program.take("optionSpace"), assigned);
        display.holdKey(altKey);
        display.holdKey(spaceKey);
        const QString repeat = QStringLiteral("event %1").arg(spaceCode);
        QVERIFY(program.waitForCount(repeat, 5));
        QVERIFY(waitForFocus(*session, QStringLiteral("Wall")));
        // Both with the modifier and after it.
        QVERIFY(program.waitForCount(repeat, program.count(repeat) + 5));
        display.releaseKey(altKey);
        QVERIFY(program.waitForCount(repeat, program.count(repeat) + 5));
        display.releaseKey(spaceKey);
        QVERIFY(display.typeText(QStringLiteral("x y")));
        QVERIFY(DesktopSession::waitFor([&] { return program.typed().endsWith(u'y'); }));
        QCOMPARE(program.typed(), QStringLiteral("x y"));
        QCOMPARE(program.count(pressed), 1);
    }

    void aKeyHeldToHideTheWallTypesNothingBelow() {
        const auto session = DesktopSession::start();
        QVERIFY(session);
        const XDisplay& display = session->display();
        OtherProgram other(session->displayName());
        other.showWindow();
        QVERIFY(DesktopSession::waitFor([&] { return other.hasFocus(); }));
        RunningHotKeyProgram program(*session);
        QCOMPARE(program.take("optionSpace"), assigned);
        pressShortcut(*session);
        QVERIFY(waitForFocus(*session, QStringLiteral("Wall")));
        display.holdKey(altKey);
        display.holdKey(spaceKey);
        const QString repeat = QStringLiteral("event %1").arg(spaceCode);
        QVERIFY(program.waitForCount(repeat, program.count(repeat) + 5));
        display.releaseKey(altKey);
        QVERIFY(DesktopSession::waitFor([&] { return other.hasFocus(); }));
        QVERIFY(program.waitForCount(repeat, program.count(repeat) + 5));
        display.releaseKey(spaceKey);
        display.typeKey(letterKey);
        QVERIFY(DesktopSession::waitFor([&] { return std::ranges::count(other.pressedKeys(), letterCode) > 0; }));
        QCOMPARE(std::ranges::count(other.pressedKeys(), spaceCode), 0);
        QCOMPARE(program.count(pressed), 2);
    }

    void keysTypedRightAfterThePressReachTheWall_data() { windowManagers(); }
    void keysTypedRightAfterThePressReachTheWall() {
        const auto session = startSession();
        QVERIFY(session);
        OtherProgram other(session->displayName());
        other.showWindow();
        if (session->windowManagerName().isEmpty())
            other.takeFocus();
        QVERIFY(DesktopSession::waitFor([&] { return other.hasFocus(); }));
        RunningHotKeyProgram program(*session);
        QCOMPARE(program.take("optionSpace"), assigned);
        // The program sleeps through all of it.
        kill(static_cast<pid_t>(program.process().processId()), SIGSTOP);
        pressShortcut(*session);
        QVERIFY(session->display().typeText(QStringLiteral("first keys")));
        kill(static_cast<pid_t>(program.process().processId()), SIGCONT);
        QVERIFY(DesktopSession::waitFor([&] { return program.typed() == QStringLiteral("first keys"); }));
        QCOMPARE(program.count(pressed), 1);
    }

    void theWindowManagerLearnsTheTimeOfThePressBeforeItShowsTheWall() {
        const auto session = DesktopSession::start();
        QVERIFY(session);
        OtherProgram other(session->displayName());
        RunningHotKeyProgram program(*session);
        QCOMPARE(program.take("optionSpace"), assigned);
        pressShortcut(*session);
        QVERIFY(waitForFocus(*session, QStringLiteral("Wall")));
        pressShortcut(*session);
        QVERIFY(program.waitForCount(QStringLiteral("hidden"), 1));
        session->stopWindowManager();
        const xcb_timestamp_t before = other.now();
        pressShortcut(*session);
        QVERIFY(DesktopSession::waitFor([&] { return other.lastUserTime() >= before; }));
        QVERIFY(!session->display().viewableWindow(QStringLiteral("Wall")));
    }

    void aSecondPressClosesTheWallThatIsStillOpening_data() {
        QTest::addColumn<int>("group");
        QTest::newRow("first group of the layout") << 0;
        QTest::newRow("second group") << 1;
    }
    void aSecondPressClosesTheWallThatIsStillOpening() {
        QFETCH(int, group);
        const auto session = DesktopSession::start();
        QVERIFY(session);
        QVERIFY(group == 0 || switchToSecondGroup(*session));
        RunningHotKeyProgram program(*session);
        QCOMPARE(program.take("optionSpace"), assigned);
        // A window manager that sleeps lets no window appear.
        session->stopWindowManager();
        pressShortcut(*session);
        QVERIFY(program.waitForCount(QStringLiteral("shown"), 1));
        pressShortcut(*session);
        QVERIFY(program.waitForCount(QStringLiteral("hidden"), 1));
        session->continueWindowManager();
        QVERIFY(!session->display().keyboardIsGrabbed());
        pressShortcut(*session);
        QVERIFY(waitForFocus(*session, QStringLiteral("Wall")));
        session->display().typeKey(returnKey);
        QVERIFY(DesktopSession::waitFor([&] { return program.typed() == QStringLiteral("\r"); }));
    }

    void aSpaceThatIsHeldLaterTypesAsAnyKey() {
        const auto session = bareSession();
        QVERIFY(session);
        RunningHotKeyProgram program(*session);
        QCOMPARE(program.take("optionSpace"), assigned);
        pressShortcut(*session);
        QVERIFY(waitForFocus(*session, QStringLiteral("Wall")));
        session->display().holdKey(spaceKey);
        QVERIFY(DesktopSession::waitFor([&] { return program.typed().startsWith(QStringLiteral("   ")); }));
    }

    void aCombinationThatAnotherProgramHasIsRefused_data() {
        QTest::addColumn<std::uint16_t>("modifiers");
        QTest::newRow("plain") << std::uint16_t{XCB_MOD_MASK_1};
        QTest::newRow("with Num Lock only") << std::uint16_t{XCB_MOD_MASK_1 | XCB_MOD_MASK_2};
        QTest::newRow("with Caps and Num Lock only")
            << std::uint16_t{XCB_MOD_MASK_1 | XCB_MOD_MASK_2 | XCB_MOD_MASK_LOCK};
    }
    void aCombinationThatAnotherProgramHasIsRefused() {
        QFETCH(std::uint16_t, modifiers);
        const auto session = bareSession();
        QVERIFY(session);
        const OtherProgram other(session->displayName());
        QVERIFY(other.grabKey(spaceCode, modifiers));
        RunningHotKeyProgram program(*session);
        QVERIFY(isRefusal(program.take("optionSpace")));
        // None of the others is kept.
        for (const std::uint16_t variant : variantsWithLocks(XCB_MOD_MASK_1))
            QVERIFY(other.grabKey(spaceCode, variant));
        for (const std::uint16_t variant : variantsWithLocks(XCB_MOD_MASK_1))
            other.ungrabKey(spaceCode, variant);
        QCOMPARE(program.take("optionSpace"), assigned);
        QVERIFY(!other.grabKey(spaceCode, modifiers));
        pressShortcut(*session);
        QVERIFY(program.waitForCount(pressed, 1));
    }

    void theWindowManagersOwnShortcutIsRespected() {
        const auto session = DesktopSession::start({.shortcuts = WindowManagerShortcuts::standard});
        QVERIFY(session);
        RunningHotKeyProgram program(*session);
        QVERIFY(isRefusal(program.take("optionSpace")));
        QVERIFY(!isRefusal(program.take("controlSpace")));
        pressShortcut(*session, controlKey);
        QVERIFY(program.waitForCount(pressed, 1));
    }

    void aShortcutThatIsTurnedOffIsFreeForOthers() {
        const auto session = bareSession();
        QVERIFY(session);
        OtherProgram other(session->displayName());
        RunningHotKeyProgram program(*session);
        QVERIFY(!isRefusal(program.take("commandSpace")));
        QVERIFY(!other.grabKey(spaceCode, XCB_MOD_MASK_4));
        QCOMPARE(program.take("off"), QStringLiteral("Shortcut is off."));
        for (const std::uint16_t variant : variantsWithLocks(XCB_MOD_MASK_4))
            QVERIFY(other.grabKey(spaceCode, variant));
        pressShortcut(*session, superKey);
        QVERIFY(DesktopSession::waitFor([&] { return !other.pressedKeys().empty(); }));
        QCOMPARE(program.count(pressed), 0);
    }

    void whileAnotherProgramHoldsTheKeyboardNothingHappens() {
        const auto session = bareSession();
        QVERIFY(session);
        OtherProgram other(session->displayName());
        RunningHotKeyProgram program(*session);
        QCOMPARE(program.take("optionSpace"), assigned);
        QVERIFY(other.grabKeyboard());
        pressShortcut(*session);
        QVERIFY(DesktopSession::waitFor([&] { return other.pressedKeys().size() == 2; }));
        other.ungrabKeyboard();
        pressShortcut(*session);
        QVERIFY(program.waitForCount(QStringLiteral("shown"), 1));
        QCOMPARE(program.count(pressed), 1);
    }

    void aFullScreenWindowInFrontMakesNoDifference() {
        const auto session = DesktopSession::start();
        QVERIFY(session);
        OtherProgram other(session->displayName());
        RunningHotKeyProgram program(*session);
        QCOMPARE(program.take("optionSpace"), assigned);
        other.showWindow();
        QVERIFY(DesktopSession::waitFor([&] { return other.hasFocus(); }));
        pressShortcut(*session);
        QVERIFY(waitForFocus(*session, QStringLiteral("Wall")));
        QCOMPARE(std::ranges::count(other.pressedKeys(), spaceCode), 0);
    }

    void whatTheServiceDoesNotKnowIsRefused() {
        const auto session = bareSession();
        QVERIFY(session);
        RunningHotKeyProgram program(*session);
        QCOMPARE(program.take("optionSpace"), assigned);
        QCOMPARE(program.take("register 49 256"), QStringLiteral("accepted"));
        QCOMPARE(program.take("register 49 256"), QStringLiteral("refused"));
        QCOMPARE(program.take("register 49 512"), QStringLiteral("refused"));
        QCOMPARE(program.take("register 36 4096"), QStringLiteral("refused"));
    }

    void withoutAnXServerTheShortcutIsRefused() {
        const auto session = bareSession();
        QVERIFY(session);
        QProcess& process = session->startProgram(QStringLiteral("env"), {QStringLiteral("QT_QPA_PLATFORM=offscreen"),
                                                                          QStringLiteral(ZELMO_HOT_KEY_PROGRAM)});
        process.write("optionSpace\noff\n");
        QByteArray output;
        QVERIFY(DesktopSession::waitFor([&] {
            process.waitForReadyRead(1);
            output += process.readAllStandardOutput();
            return output.count('\n') == 2;
        }));
        QVERIFY(output.startsWith("status Could not assign Option + Space."));
        QVERIFY(output.endsWith("status Shortcut is off.\n"));
    }

private:
    static void windowManagers() {
        QTest::addColumn<QString>("windowManager");
        QTest::newRow("openbox") << QStringLiteral("openbox");
        QTest::newRow("none") << QString();
    }
    static std::unique_ptr<DesktopSession> startSession() {
        QFETCH(QString, windowManager);
        return DesktopSession::start({.windowManager = windowManager});
    }
    static bool waitForFocus(const DesktopSession& session, const QString& title) {
        return DesktopSession::waitFor([&] {
            const auto window = session.display().viewableWindow(title);
            return window && session.display().focusedWindow() == *window;
        });
    }
    static QList<std::uint16_t> variantsWithLocks(int modifiers) {
        QList<std::uint16_t> variants;
        for (const int locks : {0, int{XCB_MOD_MASK_LOCK}, int{XCB_MOD_MASK_2}, XCB_MOD_MASK_LOCK | XCB_MOD_MASK_2})
            variants.append(static_cast<std::uint16_t>(modifiers | locks));
        return variants;
    }
};

QTEST_GUILESS_MAIN(X11HotKeyServiceTest)
#include "X11HotKeyServiceTest.moc"
