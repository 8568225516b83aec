#include "support/DesktopSession.h"

#include <QDir>
#include <QTest>

#include <csignal>

using namespace zelmo::test;

namespace {

// Where the middle of a card of the grid is on the screen, with the default settings.
QPoint cardCenter(const DesktopSession& session, int column) {
    const int columns = 6;
    const int step = 154 + 22;
    const int left = (session.display().size().width() - (columns * step - 22)) / 2;
    return {left + column * step + 77, 330};
}

// Nothing else in the grid's place is as bright as the name of a card.
bool showsCard(const DesktopSession& session, const QImage& screen, int column) {
    const QPoint center = cardCenter(session, column);
    for (int y = center.y() - 80; y < center.y() + 100; ++y) {
        for (int x = center.x() - 77; x < center.x() + 77; ++x) {
            if (qGray(screen.pixel(x, y)) > 200)
                return true;
        }
    }
    return false;
}

class Wall {
public:
    explicit Wall(DesktopSession& session)
        : m_session(session), process(session.startProgram(QStringLiteral(ZELMO_PROGRAM))) {}

    bool waitUntilShown() const {
        return DesktopSession::waitFor([this] {
            const auto window = m_session.display().viewableWindow(QStringLiteral("Zelmo"));
            return window && m_session.display().geometry(*window) == QRect(QPoint(0, 0), m_session.display().size()) &&
                   m_session.display().focusedWindow() == *window;
        });
    }
    // What is seen does not change for some frames.
    bool waitUntilPainted() const {
        QImage last;
        int equal = 0;
        return waitUntilShown() && DesktopSession::waitFor([&] {
                   QTest::qWait(30);
                   QImage next = m_session.display().screenshot();
                   equal = next == last ? equal + 1 : 0;
                   last = std::move(next);
                   return equal >= 4;
               });
    }
    // The first row shows so many cards and no more.
    bool waitForCards(int count) const {
        return waitUntilShown() && DesktopSession::waitFor([&] {
                   const QImage screen = m_session.display().screenshot();
                   return showsCard(m_session, screen, count - 1) && !showsCard(m_session, screen, count);
               });
    }
    bool waitUntilGone() const {
        return DesktopSession::waitFor(
            [this] { return !m_session.display().viewableWindow(QStringLiteral("Zelmo")).has_value(); });
    }

private:
    DesktopSession& m_session;

public:
    QProcess& process;
};

} // namespace

class FirstLightTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theWallFillsTheScreenAndHasTheFocus_data() { windowManagers(); }
    void theWallFillsTheScreenAndHasTheFocus() {
        const auto session = startSession();
        QVERIFY(session);
        session->installEntry(QStringLiteral("Alpha"));
        const Wall wall(*session);
        QVERIFY(wall.waitUntilShown());
    }

    void aClickLaunchesTheApplicationAndHidesTheWall() {
        const auto session = DesktopSession::start();
        QVERIFY(session);
        for (const char* name : {"Alpha", "Beta", "Gamma"})
            session->installEntry(QString::fromLatin1(name));
        const Wall wall(*session);
        QVERIFY(wall.waitForCards(3));
        session->display().click(cardCenter(*session, 1));
        QVERIFY(DesktopSession::waitFor([&] { return !session->launched().isEmpty(); }));
        QCOMPARE(session->launched(), QStringList{QStringLiteral("Beta")});
        QVERIFY(wall.waitUntilGone());
    }

    void aBundleRunsItsOwnExecutable() {
        const auto session = DesktopSession::start();
        QVERIFY(session);
        session->writeFile(QStringLiteral("Applications/Tool.app/Contents/Info.plist"),
                           "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict><key>CFBundleExecutable</key>"
                           "<string>run</string></dict></plist>");
        const QString executable = QStringLiteral("Applications/Tool.app/Contents/MacOS/run");
        session->writeFile(executable, "#!/bin/sh\ntouch \"$HOME/launched/Tool$QT_QPA_UPDATE_IDLE_TIME\"\n");
        QFile::setPermissions(session->home() + u'/' + executable, QFile::ReadOwner | QFile::ExeOwner);
        const Wall wall(*session);
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
        const Wall wall(*session);
        QVERIFY(wall.waitForCards(3));
        QVERIFY(session->display().typeText(QStringLiteral("GAM")));
        QVERIFY(wall.waitForCards(1));
        session->display().click(cardCenter(*session, 0));
        QVERIFY(DesktopSession::waitFor([&] { return session->launched() == QStringList{QStringLiteral("Gamma")}; }));
    }

    void keysTypedBeforeTheWindowIsThereAreNotLost() {
        const auto session = DesktopSession::start();
        QVERIFY(session);
        for (const char* name : {"Alpha", "Beta", "Gamma"})
            session->installEntry(QString::fromLatin1(name));
        // A window manager that sleeps lets no window appear.
        kill(static_cast<pid_t>(session->windowManagerProcess()), SIGSTOP);
        const Wall wall(*session);
        QVERIFY(DesktopSession::waitFor([&] { return session->display().keyboardIsGrabbed(); }));
        QVERIFY(session->display().typeText(QStringLiteral("Bet")));
        QVERIFY(!session->display().viewableWindow(QStringLiteral("Zelmo")));
        kill(static_cast<pid_t>(session->windowManagerProcess()), SIGCONT);
        QVERIFY(wall.waitForCards(1));
        session->display().click(cardCenter(*session, 0));
        QVERIFY(DesktopSession::waitFor([&] { return !session->launched().isEmpty(); }));
        QCOMPARE(session->launched(), QStringList{QStringLiteral("Beta")});
    }

    void keysAreNotLostWhenTheWindowTakesLongerThanTheKeyboardMayBeHeld() {
        const auto session = DesktopSession::start();
        QVERIFY(session);
        for (const char* name : {"Alpha", "Beta", "Gamma"})
            session->installEntry(QString::fromLatin1(name));
        kill(static_cast<pid_t>(session->windowManagerProcess()), SIGSTOP);
        const Wall wall(*session);
        QVERIFY(DesktopSession::waitFor([&] { return session->display().keyboardIsGrabbed(); }));
        QVERIFY(session->display().typeText(QStringLiteral("Bet")));
        QVERIFY(DesktopSession::waitFor([&] { return !session->display().keyboardIsGrabbed(); }));
        QVERIFY(!session->display().viewableWindow(QStringLiteral("Zelmo")));
        kill(static_cast<pid_t>(session->windowManagerProcess()), SIGCONT);
        QVERIFY(wall.waitForCards(1));
        session->display().click(cardCenter(*session, 0));
        QVERIFY(DesktopSession::waitFor([&] { return !session->launched().isEmpty(); }));
        QCOMPARE(session->launched(), QStringList{QStringLiteral("Beta")});
    }

    void theKeyboardIsLetGoOnceTheWallHasTheFocus() {
        const auto session = DesktopSession::start();
        QVERIFY(session);
        const Wall wall(*session);
        QVERIFY(wall.waitUntilShown());
        QVERIFY(DesktopSession::waitFor([&] { return !session->display().keyboardIsGrabbed(); }));
    }

    void escapeHidesTheWall() {
        const auto session = DesktopSession::start();
        QVERIFY(session);
        session->installEntry(QStringLiteral("Alpha"));
        const Wall wall(*session);
        QVERIFY(wall.waitUntilPainted());
        QVERIFY(session->display().typeKey(escapeKey));
        QVERIFY(wall.waitUntilGone());
        QVERIFY(session->launched().isEmpty());
    }

    void anApplicationInstalledMeanwhileAppearsByItself() {
        const auto session = DesktopSession::start();
        QVERIFY(session);
        const Wall wall(*session);
        QVERIFY(wall.waitUntilPainted());
        session->installEntry(QStringLiteral("Alpha"));
        QVERIFY(wall.waitForCards(1));
        session->display().click(cardCenter(*session, 0));
        QVERIFY(DesktopSession::waitFor([&] { return session->launched() == QStringList{QStringLiteral("Alpha")}; }));
    }

    void aSignalEndsItCleanly() {
        const auto session = DesktopSession::start();
        QVERIFY(session);
        const Wall wall(*session);
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
