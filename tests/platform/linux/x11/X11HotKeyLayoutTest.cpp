#include "ShortcutPresses.h"

#include <QTest>

using namespace zelmo::test;

namespace {

constexpr xcb_keycode_t capsLockCode = 66;
constexpr xcb_keycode_t numLockCode = 77;
constexpr xcb_keycode_t scrollLockCode = 78;
constexpr xcb_keycode_t leftSuperCode = 133;
constexpr xcb_keysym_t capsLockKey = 0xffe5;
constexpr xcb_keysym_t numLockKey = 0xff7f;
constexpr xcb_keysym_t scrollLockKey = 0xff14;

} // namespace

class X11HotKeyLayoutTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void lockedModifiersMakeNoDifference_data() {
        QTest::addColumn<QList<xcb_keysym_t>>("locks");
        QTest::newRow("Num Lock") << QList{numLockKey};
        QTest::newRow("Caps Lock") << QList{capsLockKey};
        QTest::newRow("Scroll Lock") << QList{scrollLockKey};
        QTest::newRow("Num and Caps Lock") << QList{numLockKey, capsLockKey};
        QTest::newRow("all three") << QList{numLockKey, capsLockKey, scrollLockKey};
    }
    void lockedModifiersMakeNoDifference() {
        QFETCH(QList<xcb_keysym_t>, locks);
        const auto session = bareSession();
        QVERIFY(session);
        const OtherProgram other(session->displayName());
        other.changeModifier(XCB_MAP_INDEX_3, scrollLockCode);
        RunningHotKeyProgram program(*session);
        QCOMPARE(program.take("optionSpace"), assigned);
        for (const xcb_keysym_t lock : locks)
            QVERIFY(session->display().typeKey(lock));
        pressShortcut(*session);
        QVERIFY(program.waitForCount(pressed, 1));
    }

    void theKeyIsFollowedToAnotherPlace() {
        const auto session = bareSession();
        QVERIFY(session);
        const OtherProgram other(session->displayName());
        RunningHotKeyProgram program(*session);
        QCOMPARE(program.take("optionSpace"), assigned);
        other.changeModifier(XCB_MAP_INDEX_LOCK, 0);
        other.changeKey(spaceCode, capsLockKey);
        other.changeKey(capsLockCode, spaceKey);
        QVERIFY(waitForPress(*session, program));
        QVERIFY(other.grabKey(spaceCode, XCB_MOD_MASK_1));
    }

    void eachOfTwoSpaceKeysWorks() {
        const auto session = bareSession();
        QVERIFY(session);
        const OtherProgram other(session->displayName());
        other.changeModifier(XCB_MAP_INDEX_LOCK, 0);
        other.changeKey(capsLockCode, spaceKey);
        RunningHotKeyProgram program(*session);
        QCOMPARE(program.take("optionSpace"), assigned);
        QVERIFY(!other.grabKey(spaceCode, XCB_MOD_MASK_1));
        QVERIFY(!other.grabKey(capsLockCode, XCB_MOD_MASK_1));
    }

    void numLockIsFollowedToAnotherModifier() {
        const auto session = bareSession();
        QVERIFY(session);
        const OtherProgram other(session->displayName());
        RunningHotKeyProgram program(*session);
        QCOMPARE(program.take("optionSpace"), assigned);
        other.changeModifier(XCB_MAP_INDEX_3, numLockCode);
        QVERIFY(session->display().typeKey(numLockKey));
        QVERIFY(waitForPress(*session, program));
    }

    void superIsFollowedToAnotherModifier() {
        const auto session = bareSession();
        QVERIFY(session);
        const OtherProgram other(session->displayName());
        RunningHotKeyProgram program(*session);
        QVERIFY(!isRefusal(program.take("commandSpace")));
        other.changeModifier(XCB_MAP_INDEX_4, 0);
        other.changeModifier(XCB_MAP_INDEX_3, leftSuperCode);
        QVERIFY(waitForPress(*session, program, superKey));
        QVERIFY(other.grabKey(spaceCode, XCB_MOD_MASK_4));
    }

    void aKeyboardWithoutTheModifierIsRefused() {
        const auto session = bareSession();
        QVERIFY(session);
        const OtherProgram other(session->displayName());
        other.changeModifier(XCB_MAP_INDEX_4, 0);
        RunningHotKeyProgram program(*session);
        QVERIFY(isRefusal(program.take("commandSpace")));
        QVERIFY(other.grabKey(spaceCode, 0));
    }

    void theSecondGroupOfALayoutWorks() {
        const auto session = bareSession();
        QVERIFY(session);
        QVERIFY(switchToSecondGroup(*session));
        RunningHotKeyProgram program(*session);
        QCOMPARE(program.take("optionSpace"), assigned);
        pressShortcut(*session);
        QVERIFY(program.waitForCount(pressed, 1));
    }

private:
    // Tries until the program has noticed what has changed.
    static bool waitForPress(const DesktopSession& session, RunningHotKeyProgram& program,
                             xcb_keysym_t modifier = altKey) {
        return DesktopSession::waitFor([&] {
            pressShortcut(session, modifier);
            return program.count(pressed) > 0;
        });
    }
};

QTEST_GUILESS_MAIN(X11HotKeyLayoutTest)
#include "X11HotKeyLayoutTest.moc"
