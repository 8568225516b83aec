#include "catalog/AppUsageRecord.h"
#include "desktop/WallOnScreen.h"
#include "platform/linux/propertylist/PlistPreferencesFile.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QElapsedTimer>
#include <QFile>
#include <QStandardPaths>

#include <cmath>

using namespace zelmo;
using namespace zelmo::test;

namespace {

// A desktop with two programs that take the keyboard, one known by an entry and one in a bundle of its own.
class TwoPrograms {
public:
    explicit TwoPrograms(const QString& windowManager)
        : session(DesktopSession::start({.windowManager = windowManager})) {
        if (!session)
            return;
        session->writeFile(QStringLiteral(".local/share/applications/calculator.desktop"),
                           "[Desktop Entry]\nType=Application\nName=Calculator\nExec=xcalc\nStartupWMClass=XCalc\n");
        // Metacity has Alt and Space for itself.
        session->writeFile(QStringLiteral(".config/zelmo/preferences.plist"),
                           "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict><key>launcherKeyboardShortcut</key>"
                           "<string>controlSpace</string></dict></plist>");
        QFile editor(QStandardPaths::findExecutable(QStringLiteral("xedit")));
        if (!editor.open(QFile::ReadOnly))
            qFatal("xedit is missing");
        session->writeProgram(editorProgram, editor.readAll());
    }

    QString entryPath() const {
        return session->home() + QStringLiteral("/.local/share/applications/calculator.desktop");
    }
    QString bundlePath() const { return session->home() + QStringLiteral("/Applications/Editor.app"); }

    bool waitForClass(const char* name) const {
        return DesktopSession::waitFor([&] { return session->display().activeClass() == QLatin1StringView(name); });
    }
    std::optional<xcb_window_t> startCalculator() const {
        session->startProgram(QStringLiteral("xcalc"));
        return waitForClass("XCalc") ? session->display().activeWindow() : std::nullopt;
    }
    std::optional<xcb_window_t> startEditor() const {
        session->startProgram(session->home() + u'/' + editorProgram);
        return waitForClass("Xedit") ? session->display().activeWindow() : std::nullopt;
    }
    AppUsageRecords storedRecords() const {
        PlistPreferencesFile file(
            FileUrl::fromPath(session->home() + QStringLiteral("/.config/zelmo/preferences.plist")));
        const PreferenceValues values = file.read();
        const auto data = values.constFind(QStringLiteral("appUsageRecords"));
        if (data == values.constEnd())
            return {};
        return decodeUsageRecords(std::get<QByteArray>(*data)).value_or(AppUsageRecords{});
    }

    std::unique_ptr<DesktopSession> session;

private:
    static inline const QString editorProgram = QStringLiteral("Applications/Editor.app/Contents/Linux/Editor");
};

} // namespace

// Which program is in front before, while and after the wall is up, on real window managers.
class FocusTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void eachProgramIsCreditedWithItsTimeInFront_data() { windowManagers(); }
    void eachProgramIsCreditedWithItsTimeInFront() {
        QFETCH(QString, windowManager);
        const TwoPrograms programs(windowManager);
        QVERIFY(programs.session);
        const XDisplay& display = programs.session->display();
        const WallOnScreen wall(*programs.session);
        QVERIFY(wall.waitForCards(2));
        QVERIFY(wall.hide());
        const auto calculator = programs.startCalculator();
        QVERIFY(calculator);
        QElapsedTimer calculatorTime;
        calculatorTime.start();
        QTest::qWait(1500);
        const auto editor = programs.startEditor();
        QVERIFY(editor);
        double calculatorSeconds = static_cast<double>(calculatorTime.elapsed()) / 1000;
        QElapsedTimer editorTime;
        editorTime.start();
        QTest::qWait(2500);
        display.activate(*calculator);
        QVERIFY(programs.waitForClass("XCalc"));
        const double editorSeconds = static_cast<double>(editorTime.elapsed()) / 1000;
        calculatorTime.restart();
        QTest::qWait(1200);
        // The wall's own time is nobody's.
        wall.pressShortcut();
        QVERIFY(wall.waitUntilShown());
        calculatorSeconds += static_cast<double>(calculatorTime.elapsed()) / 1000;

        const auto isNear = [](double credited, double measured) { return std::abs(credited - measured) < 0.7; };
        QVERIFY(DesktopSession::waitFor([&] {
            return isNear(programs.storedRecords().value(programs.entryPath()).activeSeconds, calculatorSeconds);
        }));
        QVERIFY(isNear(programs.storedRecords().value(programs.bundlePath()).activeSeconds, editorSeconds));
        QCOMPARE(programs.storedRecords().size(), 2);
        QCOMPARE(programs.storedRecords().value(programs.entryPath()).launchCount, 0);
    }

    void timeWithALockedScreenIsNobodys() {
        const TwoPrograms programs(QStringLiteral("openbox"));
        QVERIFY(programs.session);
        QDBusConnection bus = QDBusConnection::connectToBus(
            programs.session->environment().value(QStringLiteral("DBUS_SESSION_BUS_ADDRESS")), QStringLiteral("lock"));
        QVERIFY(bus.registerService(QStringLiteral("org.freedesktop.ScreenSaver")));
        const auto setLocked = [&](bool isLocked) {
            QDBusMessage signal = QDBusMessage::createSignal(QStringLiteral("/org/freedesktop/ScreenSaver"),
                                                             QStringLiteral("org.freedesktop.ScreenSaver"),
                                                             QStringLiteral("ActiveChanged"));
            signal << isLocked;
            return bus.send(signal);
        };
        const WallOnScreen wall(*programs.session);
        QVERIFY(wall.waitForCards(2));
        QVERIFY(wall.hide());
        QVERIFY(programs.startCalculator());
        QElapsedTimer time;
        time.start();
        QTest::qWait(1500);
        QVERIFY(setLocked(true));
        const double before = static_cast<double>(time.elapsed()) / 1000;
        // Locking stores what was used until then.
        const auto credited = [&] { return programs.storedRecords().value(programs.entryPath()).activeSeconds; };
        QVERIFY(DesktopSession::waitFor([&] { return credited() > 0; }));
        QVERIFY(std::abs(credited() - before) < 0.7);
        QTest::qWait(2500);
        QVERIFY(setLocked(false));
        time.restart();
        QTest::qWait(1200);
        wall.pressShortcut();
        QVERIFY(wall.waitUntilShown());
        const double after = static_cast<double>(time.elapsed()) / 1000;
        QVERIFY(DesktopSession::waitFor([&] { return credited() > before + 0.7; }));
        QVERIFY(std::abs(credited() - before - after) < 0.7);
        QDBusConnection::disconnectFromBus(QStringLiteral("lock"));
    }

    void withoutAWindowManagerNothingIsTimed() {
        const TwoPrograms programs{QString()};
        QVERIFY(programs.session);
        programs.session->startProgram(QStringLiteral("xcalc"));
        const WallOnScreen wall(*programs.session);
        QVERIFY(wall.waitForCards(2));
        QVERIFY(wall.hide());
        QTest::qWait(1500);
        wall.pressShortcut();
        QVERIFY(wall.waitUntilShown());
        // A launch stores the records, so that there are some to look at.
        programs.session->display().click(cardCenter(*programs.session, 0));
        QVERIFY(DesktopSession::waitFor([&] { return !programs.storedRecords().isEmpty(); }));
        QCOMPARE(programs.storedRecords().value(programs.entryPath()).activeSeconds, 0.0);
        QCOMPARE(programs.storedRecords().value(programs.entryPath()).launchCount, 1);
    }

    void aLaunchedProgramComesToTheFront_data() { windowManagers(); }
    void aLaunchedProgramComesToTheFront() {
        QFETCH(QString, windowManager);
        const TwoPrograms programs(windowManager);
        QVERIFY(programs.session);
        QVERIFY(programs.startEditor());
        const WallOnScreen wall(*programs.session);
        QVERIFY(wall.waitForCards(2));
        programs.session->display().click(cardCenter(*programs.session, 0));
        QVERIFY(wall.waitUntilGone());
        QVERIFY(programs.waitForClass("XCalc"));
        QCOMPARE(programs.storedRecords().value(programs.entryPath()).launchCount, 1);
    }

    void escapeGivesTheFocusBackAndTogglingDoesNot_data() { windowManagers(); }
    void escapeGivesTheFocusBackAndTogglingDoesNot() {
        QFETCH(QString, windowManager);
        const TwoPrograms programs(windowManager);
        QVERIFY(programs.session);
        const XDisplay& display = programs.session->display();
        const WallOnScreen wall(*programs.session);
        QVERIFY(wall.waitForCards(2));
        QVERIFY(wall.hide());
        QVERIFY(programs.startEditor());
        const auto calculator = programs.startCalculator();
        QVERIFY(calculator);

        display.watchActivationRequests();
        wall.pressShortcut();
        QVERIFY(wall.waitUntilShown());
        QVERIFY(wall.hide());
        QVERIFY(programs.waitForClass("XCalc"));
        // It is asked for, not left to what the window manager happens to choose.
        QVERIFY(DesktopSession::waitFor([&] { return display.activationRequests().contains(*calculator); }));

        wall.pressShortcut();
        QVERIFY(wall.waitUntilShown());
        display.activationRequests();
        wall.pressShortcut();
        QVERIFY(wall.waitUntilGone());
        // Shown again: whatever the hiding asked for was asked before.
        wall.pressShortcut();
        QVERIFY(wall.waitUntilShown());
        QVERIFY(!display.activationRequests().contains(*calculator));
    }

    void withoutAWindowManagerEscapeGivesTheKeyboardBack() {
        const TwoPrograms programs{QString()};
        QVERIFY(programs.session);
        const XDisplay& display = programs.session->display();
        programs.session->startProgram(QStringLiteral("xcalc"));
        QVERIFY(
            DesktopSession::waitFor([&] { return display.viewableWindow(QStringLiteral("Calculator")).has_value(); }));
        const xcb_window_t calculator = *display.viewableWindow(QStringLiteral("Calculator"));
        const WallOnScreen wall(*programs.session);
        QVERIFY(wall.waitForCards(2));
        QVERIFY(wall.hide());
        xcb_set_input_focus(display.connection(), XCB_INPUT_FOCUS_PARENT, calculator, XCB_CURRENT_TIME);
        display.synchronize();
        wall.pressShortcut();
        QVERIFY(wall.waitUntilShown());
        QVERIFY(wall.hide());
        QVERIFY(DesktopSession::waitFor([&] { return display.focusedWindow() == calculator; }));
    }

    void aProgramThatEndedMeanwhileIsNotAskedFor() {
        const TwoPrograms programs(QStringLiteral("openbox"));
        QVERIFY(programs.session);
        const WallOnScreen wall(*programs.session);
        QVERIFY(wall.waitForCards(2));
        QVERIFY(wall.hide());
        QProcess& calculator = programs.session->startProgram(QStringLiteral("xcalc"));
        QVERIFY(programs.waitForClass("XCalc"));
        wall.pressShortcut();
        QVERIFY(wall.waitUntilShown());
        calculator.kill();
        QVERIFY(calculator.waitForFinished());
        QVERIFY(wall.hide());
        wall.pressShortcut();
        QVERIFY(wall.waitUntilShown());
    }

private:
    static void windowManagers() {
        QTest::addColumn<QString>("windowManager");
        for (const char* name : {"openbox", "metacity"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }
};

QTEST_GUILESS_MAIN(FocusTest)
#include "FocusTest.moc"
