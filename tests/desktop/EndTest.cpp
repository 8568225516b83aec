#include "desktop/WallOnScreen.h"
#include "platform/linux/propertylist/PlistPreferencesFile.h"

#include <QFile>

#include <csignal>

using namespace zelmo;
using namespace zelmo::test;

namespace {

PreferenceValues storedPreferences(const DesktopSession& session) {
    PlistPreferencesFile file(FileUrl::fromPath(session.home() + QStringLiteral("/.config/zelmo/preferences.plist")));
    return file.read();
}

// As soon as the wall shows its card, the program has something to store: how the shortcut went.
bool hasStoredWhatItKnew(const DesktopSession& session) {
    return storedPreferences(session).contains(QStringLiteral("launcherKeyboardShortcutStatus"));
}

QString errorsOf(const DesktopSession& session) {
    return session.home() + QStringLiteral("/errors");
}

// What a shell is to do to become the program, with its messages in a file.
QStringList tellingErrorsTo(const QString& file) {
    return {QStringLiteral("-c"), QStringLiteral("exec '%1' 2>'%2'").arg(QStringLiteral(ZELMO_PROGRAM), file)};
}

QByteArray textOf(const QString& path) {
    QFile file(path);
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

// What ends with the server ends from within the toolkit. Then the QML engine is still there, which keeps what it has
// where the sanitizer does not look.
void expectLeaks(DesktopSession& session) {
    const QString options = QStringLiteral("ASAN_OPTIONS");
    session.environment().insert(options, session.environment().value(options) + QStringLiteral(":detect_leaks=0"));
}

} // namespace

// Each way in which the program can come to its end.
class EndTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aSignalEndsItCleanly_data() {
        QTest::addColumn<int>("signal");
        QTest::addColumn<bool>("isHidden");
        for (const auto& [name, signal] : {std::pair("SIGTERM", SIGTERM), {"SIGINT", SIGINT}, {"SIGHUP", SIGHUP}}) {
            QTest::addRow("%s, shown", name) << signal << false;
            QTest::addRow("%s, hidden", name) << signal << true;
        }
    }
    void aSignalEndsItCleanly() {
        QFETCH(int, signal);
        QFETCH(bool, isHidden);
        const auto session = DesktopSession::start();
        QVERIFY(session);
        session->installEntry(QStringLiteral("Notes"));
        const WallOnScreen wall(*session);
        QVERIFY(wall.waitForCards(1));
        if (isHidden)
            QVERIFY(wall.hide());
        kill(static_cast<pid_t>(wall.process.processId()), signal);
        QVERIFY(wall.process.waitForFinished());
        QCOMPARE(wall.process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(wall.process.exitCode(), 0);
        QVERIFY(hasStoredWhatItKnew(*session));
    }

    // It comes before the loop that writes what is due.
    void aSignalRightAtTheStartEndsItCleanly() {
        const auto session = DesktopSession::start();
        QVERIFY(session);
        const WallOnScreen wall(*session);
        // From when it holds the keyboard for the wall, it heeds signals.
        QVERIFY(DesktopSession::waitFor([&] { return session->display().keyboardIsGrabbed(); }));
        wall.process.terminate();
        QVERIFY(wall.process.waitForFinished());
        QCOMPARE(wall.process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(wall.process.exitCode(), 0);
        QVERIFY(hasStoredWhatItKnew(*session));
    }

    void theEndOfTheServerEndsItWithAMessage_data() {
        QTest::addColumn<bool>("isHidden");
        QTest::newRow("shown") << false;
        QTest::newRow("hidden") << true;
    }
    void theEndOfTheServerEndsItWithAMessage() {
        QFETCH(bool, isHidden);
        const auto session = DesktopSession::start();
        QVERIFY(session);
        expectLeaks(*session);
        session->installEntry(QStringLiteral("Notes"));
        const WallOnScreen wall(*session, QStringLiteral("/bin/sh"), tellingErrorsTo(errorsOf(*session)));
        QVERIFY(wall.waitForCards(1));
        if (isHidden)
            QVERIFY(wall.hide());
        session->endServer();
        QVERIFY(wall.process.waitForFinished());
        QCOMPARE(wall.process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(wall.process.exitCode(), 1);
        const QByteArray said = textOf(errorsOf(*session));
        QVERIFY2(said.contains("X11") || said.contains("X server"), said.constData());
        QVERIFY(hasStoredWhatItKnew(*session));
    }

    // The launch is counted, but what was counted is written a moment later.
    void theEndOfTheServerLosesNothing() {
        const auto session = DesktopSession::start();
        QVERIFY(session);
        expectLeaks(*session);
        session->installEntry(QStringLiteral("Notes"));
        const WallOnScreen wall(*session);
        QVERIFY(wall.waitForCards(1));
        QVERIFY(DesktopSession::waitFor([&] { return hasStoredWhatItKnew(*session); }));
        session->display().click(cardCenter(*session, 0));
        QVERIFY(wall.waitUntilGone());
        session->endServer();
        QVERIFY(wall.process.waitForFinished());
        QVERIFY(storedPreferences(*session).contains(QStringLiteral("appUsageRecords")));
    }

    void aHangUpThatItWasStartedToIgnoreDoesNotEndIt() {
        const auto session = DesktopSession::start();
        QVERIFY(session);
        session->installEntry(QStringLiteral("Notes"));
        const WallOnScreen wall(*session, QStringLiteral("nohup"), {QStringLiteral(ZELMO_PROGRAM)});
        QVERIFY(wall.waitForCards(1));
        kill(static_cast<pid_t>(wall.process.processId()), SIGHUP);
        QVERIFY(wall.hide());
        wall.pressShortcut(altKey);
        QVERIFY(wall.waitForCards(1));
        QCOMPARE(wall.process.state(), QProcess::Running);
    }

    void withoutAServerItSaysSoAndEnds() {
        const auto session = DesktopSession::start({.windowManager = {}});
        QVERIFY(session);
        session->environment().insert(QStringLiteral("DISPLAY"), QStringLiteral(":987"));
        QProcess& process = session->startProgram(QStringLiteral("/bin/sh"), tellingErrorsTo(errorsOf(*session)));
        QVERIFY(process.waitForFinished());
        QVERIFY(process.exitStatus() == QProcess::CrashExit || process.exitCode() != 0);
        QVERIFY(textOf(errorsOf(*session)).contains("could not connect to display :987"));
    }
};

QTEST_GUILESS_MAIN(EndTest)
#include "EndTest.moc"
