#include "desktop/WallOnScreen.h"

#include <QDir>

using namespace zelmo::test;

class FirstLightTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theWallFillsTheScreenAndHasTheFocus_data() { windowManagers(); }
    void theWallFillsTheScreenAndHasTheFocus() {
        const auto session = startSession();
        QVERIFY(session);
        session->installEntry(QStringLiteral("Alpha"));
        const WallOnScreen wall(*session);
        QVERIFY(wall.waitUntilShown());
    }

    void aClickLaunchesTheApplicationAndHidesTheWall() {
        const auto session = DesktopSession::start();
        QVERIFY(session);
        for (const char* name : {"Alpha", "Beta", "Gamma"})
            session->installEntry(QString::fromLatin1(name));
        const WallOnScreen wall(*session);
        QVERIFY(wall.waitForCards(3));
        session->display().click(cardCenter(*session, 1));
        QVERIFY(DesktopSession::waitFor([&] { return !session->launched().isEmpty(); }));
        QCOMPARE(session->launched(), QStringList{QStringLiteral("Beta")});
        QVERIFY(wall.waitUntilGone());
    }

    void aPressMayTakeAsLongAsItWill() {
        const auto session = DesktopSession::start();
        QVERIFY(session);
        session->installEntry(QStringLiteral("Alpha"));
        const WallOnScreen wall(*session);
        QVERIFY(wall.waitForCards(1));
        session->display().movePointer(cardCenter(*session, 0));
        session->display().holdButton();
        // Longer than it takes to press and hold something, which is 0.8 s.
        QTest::qWait(1200);
        QVERIFY(session->launched().isEmpty());
        session->display().releaseButton();
        QVERIFY(DesktopSession::waitFor([&] { return !session->launched().isEmpty(); }));
        QVERIFY(wall.waitUntilGone());
    }

    void aBundleRunsItsOwnExecutable() {
        const auto session = DesktopSession::start();
        QVERIFY(session);
        session->writeFile(QStringLiteral("Applications/Tool.app/Contents/Info.plist"),
                           "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict><key>CFBundleExecutable</key>"
                           "<string>run</string></dict></plist>");
        const QString executable = QStringLiteral("Applications/Tool.app/Contents/MacOS/run");
        session->writeProgram(executable, "#!/bin/sh\ntouch \"$HOME/launched/Tool$QT_QPA_UPDATE_IDLE_TIME\"\n");
        const WallOnScreen wall(*session);
        QVERIFY(wall.waitForCards(1));
        session->display().click(cardCenter(*session, 0));
        QVERIFY(DesktopSession::waitFor([&] { return session->launched() == QStringList{QStringLiteral("Tool")}; }));
    }

    void typingNarrowsTheWall_data() { windowManagers(); }
    void typingNarrowsTheWall() {
        const auto session = startSession();
        QVERIFY(session);
        for (const char* name : {"Alpha", "Beta", "Gamma"})
            session->installEntry(QString::fromLatin1(name));
        const WallOnScreen wall(*session);
        QVERIFY(wall.waitForCards(3));
        QVERIFY(session->display().typeText(QStringLiteral("GAM")));
        QVERIFY(wall.waitForCards(1));
        session->display().click(cardCenter(*session, 0));
        QVERIFY(DesktopSession::waitFor([&] { return session->launched() == QStringList{QStringLiteral("Gamma")}; }));
    }

    void keysTypedBeforeTheWindowIsThereAreNotLost_data() {
        QTest::addColumn<bool>("longerThanHeld");
        QTest::newRow("while the keyboard is held") << false;
        QTest::newRow("longer than it may be held") << true;
    }
    void keysTypedBeforeTheWindowIsThereAreNotLost() {
        QFETCH(bool, longerThanHeld);
        const auto session = DesktopSession::start();
        QVERIFY(session);
        for (const char* name : {"Alpha", "Beta", "Gamma"})
            session->installEntry(QString::fromLatin1(name));
        // A window manager that sleeps lets no window appear.
        session->stopWindowManager();
        const WallOnScreen wall(*session);
        QVERIFY(DesktopSession::waitFor([&] { return session->display().keyboardIsGrabbed(); }));
        QVERIFY(session->display().typeText(QStringLiteral("Bet")));
        if (longerThanHeld)
            QVERIFY(DesktopSession::waitFor([&] { return !session->display().keyboardIsGrabbed(); }));
        QVERIFY(!session->display().viewableWindow(QStringLiteral("Zelmo")));
        session->continueWindowManager();
        QVERIFY(wall.waitForCards(1));
        session->display().click(cardCenter(*session, 0));
        QVERIFY(DesktopSession::waitFor([&] { return !session->launched().isEmpty(); }));
        QCOMPARE(session->launched(), QStringList{QStringLiteral("Beta")});
    }

    // The toolkit may take the wall for the window with the focus while the server does not, or not any more.
    void aWallThatOpensAgainAtOnceHeedsEachKey() {
        const auto session = DesktopSession::start({.screen = {1920, 1080}});
        QVERIFY(session);
        for (int i = 0; i < 40; ++i)
            session->installEntry(QStringLiteral("App %1").arg(i));
        const XDisplay& display = session->display();
        const WallOnScreen wall(*session);
        QVERIFY(wall.waitUntilPainted());
        // Who has the focus is told late on a busy machine.
        for (int i = 0; i < 3; ++i)
            session->startProgram(QStringLiteral("sh"), {QStringLiteral("-c"), QStringLiteral("while :; do :; done")});
        for (int round = 0; round < 120; ++round) {
            QVERIFY(wall.hide());
            wall.pressShortcut(altKey);
            QVERIFY(
                DesktopSession::waitFor([&] { return display.viewableWindow(QStringLiteral("Zelmo")).has_value(); }));
        }
    }

    void theKeyboardIsLetGoOnceTheWallHasTheFocus() {
        const auto session = DesktopSession::start();
        QVERIFY(session);
        const WallOnScreen wall(*session);
        QVERIFY(wall.waitUntilShown());
        QVERIFY(DesktopSession::waitFor([&] { return !session->display().keyboardIsGrabbed(); }));
    }

    void escapeHidesTheWall() {
        const auto session = DesktopSession::start();
        QVERIFY(session);
        session->installEntry(QStringLiteral("Alpha"));
        const WallOnScreen wall(*session);
        QVERIFY(wall.waitUntilPainted());
        QVERIFY(session->display().typeKey(escapeKey));
        QVERIFY(wall.waitUntilGone());
        QVERIFY(session->launched().isEmpty());
    }

    void closingTheWindowHidesTheWall() {
        const auto session = DesktopSession::start();
        QVERIFY(session);
        const WallOnScreen wall(*session);
        QVERIFY(wall.waitUntilShown());
        session->display().close(*session->display().viewableWindow(QStringLiteral("Zelmo")));
        QVERIFY(wall.waitUntilGone());
        // It knows that it is hidden: one press shows it again.
        wall.pressShortcut(altKey);
        QVERIFY(wall.waitUntilShown());
    }

    void anApplicationInstalledMeanwhileAppearsByItself() {
        const auto session = DesktopSession::start();
        QVERIFY(session);
        const WallOnScreen wall(*session);
        QVERIFY(wall.waitUntilPainted());
        session->installEntry(QStringLiteral("Alpha"));
        QVERIFY(wall.waitForCards(1));
        session->display().click(cardCenter(*session, 0));
        QVERIFY(DesktopSession::waitFor([&] { return session->launched() == QStringList{QStringLiteral("Alpha")}; }));
    }

    void aSignalEndsItCleanly() {
        const auto session = DesktopSession::start();
        QVERIFY(session);
        const WallOnScreen wall(*session);
        QVERIFY(wall.waitUntilShown());
        wall.process.terminate();
        QVERIFY(wall.process.waitForFinished());
        QCOMPARE(wall.process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(wall.process.exitCode(), 0);
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
};

QTEST_GUILESS_MAIN(FirstLightTest)
#include "FirstLightTest.moc"
