#include "desktop/WallOnScreen.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QScopeGuard>

#include <csignal>

using namespace zelmo::test;

namespace {

enum class Bus { present, missing };

// A desktop with one application, with a session bus or without.
std::unique_ptr<DesktopSession> startDesktop(Bus bus, const QString& windowManager = QStringLiteral("openbox")) {
    auto session = DesktopSession::start({.windowManager = windowManager});
    if (!session)
        return nullptr;
    session->installEntry(QStringLiteral("Notes"));
    if (bus == Bus::missing)
        session->environment().remove(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"));
    return session;
}

bool endsWithSuccess(QProcess& process) {
    return DesktopSession::waitFor([&] { return process.state() == QProcess::NotRunning; }) &&
           process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
}

} // namespace

// The program started more than once, and asked from outside.
class InstanceTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aSecondStartShowsTheWallOfTheFirst_data() { buses(); }
    void aSecondStartShowsTheWallOfTheFirst() {
        QFETCH(Bus, bus);
        const auto session = startDesktop(bus);
        QVERIFY(session);
        const WallOnScreen wall(*session);
        QVERIFY(wall.waitForCards(1));
        QVERIFY(wall.hide());
        QVERIFY(endsWithSuccess(session->startProgram(QStringLiteral(ZELMO_PROGRAM))));
        QVERIFY(wall.waitForCards(1));
        // Once more while it is shown.
        QVERIFY(endsWithSuccess(session->startProgram(QStringLiteral(ZELMO_PROGRAM))));
        QVERIFY(wall.waitForCards(1));
        QCOMPARE(wall.process.state(), QProcess::Running);
    }

    // The user has done something in the other program since the first one last had anything to do with them.
    void theWallThatASecondStartShowsHasTheFocus_data() {
        QTest::addColumn<QString>("windowManager");
        for (const char* name : {"openbox", "metacity"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }
    void theWallThatASecondStartShowsHasTheFocus() {
        QFETCH(QString, windowManager);
        const auto session = startDesktop(Bus::present, windowManager);
        QVERIFY(session);
        const WallOnScreen wall(*session);
        QVERIFY(wall.waitForCards(1));
        QVERIFY(wall.hide());
        session->startProgram(QStringLiteral("xedit"));
        QVERIFY(
            DesktopSession::waitFor([&] { return session->display().activeClass() == QLatin1StringView("Xedit"); }));
        session->display().click(QPoint(640, 400));
        QVERIFY(session->display().typeText(QStringLiteral("abc")));
        QVERIFY(endsWithSuccess(session->startProgram(QStringLiteral(ZELMO_PROGRAM))));
        QVERIFY(wall.waitForCards(1));
    }

    void aWallThatLostTheKeyboardGetsItByASecondStart_data() { theWallThatASecondStartShowsHasTheFocus_data(); }
    void aWallThatLostTheKeyboardGetsItByASecondStart() {
        QFETCH(QString, windowManager);
        const auto session = startDesktop(Bus::present, windowManager);
        QVERIFY(session);
        const WallOnScreen wall(*session);
        QVERIFY(wall.waitForCards(1));
        const XDisplay& display = session->display();
        session->startProgram(QStringLiteral("xedit"));
        const auto window = [&] { return display.viewableWindow(QStringLiteral("xedit")); };
        QVERIFY(DesktopSession::waitFor([&] { return window().has_value(); }));
        // As by the keys with which windows are changed.
        display.activate(*window());
        const auto isActive = [&](const char* name) {
            return DesktopSession::waitFor([&] { return display.activeClass() == QLatin1StringView(name); });
        };
        QVERIFY(isActive("Xedit"));
        QVERIFY(display.typeText(QStringLiteral("abc")));
        QVERIFY(endsWithSuccess(session->startProgram(QStringLiteral(ZELMO_PROGRAM))));
        QVERIFY(isActive("zelmo"));
        QVERIFY(display.typeText(QStringLiteral("zz")));
        QVERIFY(wall.waitForCards(0));
    }

    void ofManyStartsAtOnceOneRemains_data() { buses(); }
    void ofManyStartsAtOnceOneRemains() {
        QFETCH(Bus, bus);
        const auto session = startDesktop(bus);
        QVERIFY(session);
        std::vector<QProcess*> processes;
        for (int i = 0; i < 6; ++i)
            processes.push_back(&session->startProgram(QStringLiteral(ZELMO_PROGRAM)));
        const auto running = [&] {
            return std::ranges::count_if(processes,
                                         [](QProcess* process) { return process->state() != QProcess::NotRunning; });
        };
        QVERIFY(DesktopSession::waitFor([&] { return running() == 1; }));
        for (QProcess* process : processes)
            QVERIFY(process->state() == QProcess::Running || endsWithSuccess(*process));
        const WallOnScreen wall(*session);
        QVERIFY(wall.waitForCards(1));
        // The one that was just started made no difference either.
        QVERIFY(endsWithSuccess(wall.process));
        QCOMPARE(running(), 1);
    }

    void afterACrashItStartsAnew_data() { buses(); }
    void afterACrashItStartsAnew() {
        QFETCH(Bus, bus);
        const auto session = startDesktop(bus);
        QVERIFY(session);
        {
            const WallOnScreen wall(*session);
            QVERIFY(wall.waitForCards(1));
            wall.process.kill();
            QVERIFY(wall.process.waitForFinished());
        }
        const WallOnScreen wall(*session);
        QVERIFY(wall.waitForCards(1));
        QCOMPARE(wall.process.state(), QProcess::Running);
    }

    void aStartBesideAProgramThatHangsSaysSo_data() { buses(); }
    void aStartBesideAProgramThatHangsSaysSo() {
        QFETCH(Bus, bus);
        const auto session = startDesktop(bus);
        QVERIFY(session);
        const WallOnScreen wall(*session);
        QVERIFY(wall.waitForCards(1));
        const auto process = static_cast<pid_t>(wall.process.processId());
        QCOMPARE(kill(process, SIGSTOP), 0);
        const auto wake = qScopeGuard([&] { kill(process, SIGCONT); });
        QProcess second;
        second.setProcessEnvironment(session->environment());
        second.start(QStringLiteral(ZELMO_PROGRAM), QStringList());
        QVERIFY(DesktopSession::waitFor([&] { return second.state() == QProcess::NotRunning; }));
        QCOMPARE(second.exitStatus(), QProcess::NormalExit);
        QCOMPARE(second.exitCode(), EXIT_FAILURE);
        QVERIFY(second.readAllStandardError().contains("running already, but does not answer"));
        QCOMPARE(wall.process.state(), QProcess::Running);
    }

    // The first one was started before there was a bus.
    void aBusThatComesLaterMakesNoSecondProgram() {
        const auto session = startDesktop(Bus::present);
        QVERIFY(session);
        const QString variable = QStringLiteral("DBUS_SESSION_BUS_ADDRESS");
        const QString address = session->environment().value(variable);
        session->environment().remove(variable);
        const WallOnScreen wall(*session);
        QVERIFY(wall.waitForCards(1));
        QVERIFY(wall.hide());
        session->environment().insert(variable, address);
        QVERIFY(endsWithSuccess(session->startProgram(QStringLiteral(ZELMO_PROGRAM))));
        QVERIFY(wall.waitForCards(1));
    }

    void theDesktopsMenusReachIt() {
        const auto session = startDesktop(Bus::present);
        QVERIFY(session);
        const WallOnScreen wall(*session);
        QVERIFY(wall.waitForCards(1));
        QVERIFY(wall.hide());
        const QString connection = QStringLiteral("menu");
        QDBusConnection bus = QDBusConnection::connectToBus(
            session->environment().value(QStringLiteral("DBUS_SESSION_BUS_ADDRESS")), connection);
        const auto call = [&bus](const char* method, const QVariantList& arguments) {
            QDBusMessage message =
                QDBusMessage::createMethodCall(QStringLiteral("org.zelmo.Zelmo"), QStringLiteral("/org/zelmo/Zelmo"),
                                               QStringLiteral("org.freedesktop.Application"), QLatin1String(method));
            message.setArguments(arguments);
            return bus.call(message).type() == QDBusMessage::ReplyMessage;
        };
        QVERIFY(call("Activate", {QVariantMap()}));
        QVERIFY(wall.waitForCards(1));
        session->installEntry(QStringLiteral("Mail"));
        QVERIFY(call("ActivateAction", {QStringLiteral("refresh"), QVariant(QVariantList()), QVariantMap()}));
        QVERIFY(wall.waitForCards(2));
        QVERIFY(call("ActivateAction", {QStringLiteral("settings"), QVariant(QVariantList()), QVariantMap()}));
        QVERIFY(wall.waitUntilGone());
        QVERIFY(call("ActivateAction", {QStringLiteral("quit"), QVariant(QVariantList()), QVariantMap()}));
        QVERIFY(endsWithSuccess(wall.process));
        QDBusConnection::disconnectFromBus(connection);
    }

private:
    static void buses() {
        QTest::addColumn<Bus>("bus");
        QTest::newRow("with a session bus") << Bus::present;
        QTest::newRow("without") << Bus::missing;
    }
};

QTEST_GUILESS_MAIN(InstanceTest)
#include "InstanceTest.moc"
