#include "desktop/WallOnScreen.h"
#include "platform/linux/propertylist/PlistPreferencesFile.h"

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
        session->installEntry(QStringLiteral("Notes"));
        const QString errors = session->home() + QStringLiteral("/errors");
        const WallOnScreen wall(
            *session, QStringLiteral("/bin/sh"),
            {QStringLiteral("-c"), QStringLiteral("exec '%1' 2>'%2'").arg(QStringLiteral(ZELMO_PROGRAM), errors)});
        QVERIFY(wall.waitForCards(1));
        if (isHidden)
            QVERIFY(wall.hide());
        else
            session->display().click(cardCenter(*session, 0));
        QVERIFY(wall.waitUntilGone());
        QVERIFY(DesktopSession::waitFor([&] { return hasStoredWhatItKnew(*session); }));
        session->endServer();
        QVERIFY(wall.process.waitForFinished());
        QCOMPARE(wall.process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(wall.process.exitCode(), 1);
        QFile file(errors);
        QVERIFY(file.open(QFile::ReadOnly));
        const QByteArray said = file.readAll();
        QVERIFY2(said.contains("X11") || said.contains("X server"), said.constData());
        const PreferenceValues values = storedPreferences(*session);
        QVERIFY(values.contains(QStringLiteral("launcherKeyboardShortcutStatus")));
        QCOMPARE(values.contains(QStringLiteral("appUsageRecords")), !isHidden);
    }

    void withoutAServerItSaysSoAndEnds() {
        const auto session = DesktopSession::start({.windowManager = {}});
        QVERIFY(session);
        session->environment().insert(QStringLiteral("DISPLAY"), QStringLiteral(":987"));
        QProcess& process = session->startProgram(QStringLiteral(ZELMO_PROGRAM));
        QVERIFY(process.waitForFinished());
        QVERIFY(process.exitStatus() == QProcess::CrashExit || process.exitCode() != 0);
    }
};

QTEST_GUILESS_MAIN(EndTest)
#include "EndTest.moc"
