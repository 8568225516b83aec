#include "desktop/SettingsOnScreen.h"
#include "platform/linux/session/FakeService.h"
#include "platform/linux/x11/OtherProgram.h"

#include <QDBusMetaType>
#include <QSettings>

using namespace zelmo::test;

using Namespaces = QMap<QString, QVariantMap>;

namespace {

constexpr xcb_keycode_t spaceCode = 65;
constexpr std::uint32_t iconicState = 3; // of a window that is put down

} // namespace

// The settings of the program under test, with a person's keys and pointer.
class SettingsOnDesktopTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { qDBusRegisterMetaType<Namespaces>(); }

    void theBusOpensThemInTheMiddleAboveOthers_data() { windowManagers(); }
    void theBusOpensThemInTheMiddleAboveOthers() {
        QFETCH(QString, windowManager);
        SettingsOnScreen settings({.windowManager = windowManager});
        QVERIFY(settings.start(2));
        QVERIFY(settings.open());
        QCOMPARE(settings.place().size(), QSize(560, 680));
        const QPoint off = settings.place().center() - QRect(0, 0, 1280, 800).center();
        QVERIFY(off.manhattanLength() < 40);
        QVERIFY(settings.hasState(*settings.window(), "_NET_WM_STATE_ABOVE"));
    }

    void theyOpenWithoutAWindowManagerToo() {
        SettingsOnScreen settings({.windowManager = {}});
        QVERIFY(settings.start(2));
        QVERIFY(settings.open());
        settings.typeWith(controlKey, letterW);
        QVERIFY(settings.waitUntilGone());
    }

    // As the program's entry in the desktop's menu has it.
    // As a desktop does that starts an entry's actions without the bus.
    void theActionOfTheDesktopEntryOpensThem() {
        QSettings entry(QStringLiteral(ZELMO_DESKTOP_ENTRY), QSettings::IniFormat);
        QVERIFY(entry.value(QStringLiteral("Desktop Entry/Actions")).toString().split(u';').contains(u"settings"));
        QStringList words =
            QProcess::splitCommand(entry.value(QStringLiteral("Desktop Action settings/Exec")).toString());
        QVERIFY(!words.isEmpty());
        SettingsOnScreen settings;
        QVERIFY(settings.start(2));
        const QString program = words.takeFirst();
        QProcess& command = settings.session->startProgram(program, words);
        QVERIFY(command.waitForFinished());
        QCOMPARE(command.exitCode(), 0);
        QVERIFY(settings.waitUntilShown());
    }

    void aBackgroundThatIsPickedIsStored() {
        SettingsOnScreen settings;
        QVERIFY(settings.start(2));
        QVERIFY(settings.open());
        const QRect picker = settings.runsOfControls().value(1);
        settings.session->display().click(picker.center());
        // The third row of the list that opens below.
        const QPoint row(picker.left() - 80, picker.bottom() + 4 + 5 + 26 * 2 + 13);
        const auto isOpen = [&] {
            const QImage screen = settings.session->display().screenshot();
            return screen.pixelColor(row.x(), picker.bottom() + 4 + 5 + 3).saturation() > 150;
        };
        QVERIFY(DesktopSession::waitFor(isOpen));
        settings.session->display().click(row);
        QVERIFY(DesktopSession::waitFor([&] { return settings.stored().contains("<string>linen</string>"); }));
        // And by keys.
        settings.type(tabKey);
        settings.typeWith(shiftKey, tabKey);
        settings.type(downKey);
        QVERIFY(DesktopSession::waitFor([&] { return settings.stored().contains("<string>softSky</string>"); }));
    }

    void hiddenAppsComeBackToTheWall() {
        SettingsOnScreen settings;
        QVERIFY(settings.session);
        settings.session->writeFile(
            QStringLiteral(".config/zelmo/preferences.plist"),
            "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict><key>hiddenAppPaths</key><array><string>" +
                settings.session->home().toUtf8() +
                "/.local/share/applications/Mail.desktop</string></array></dict></plist>");
        QVERIFY(settings.start(1));
        QVERIFY(settings.openFromTheWall());
        settings.typeWith(shiftKey, tabKey, 2);
        settings.type(spaceKey);
        QVERIFY(DesktopSession::waitFor([&] { return !settings.stored().contains("Mail.desktop"); }));
        settings.typeWith(controlKey, letterW);
        QVERIFY(settings.waitUntilGone());
        settings.wall->pressShortcut(altKey);
        QVERIFY(settings.wall->waitForCards(2));
    }

    void aShortcutThatIsTakenIsOrangeUntilItIsFree() {
        SettingsOnScreen settings;
        QVERIFY(settings.start(2));
        const OtherProgram other(settings.session->displayName());
        QVERIFY(other.grabKey(spaceCode, XCB_MOD_MASK_CONTROL));
        QVERIFY(settings.openFromTheWall());
        settings.typeWith(shiftKey, tabKey, 3);
        // The end of the form, with its coloured circles.
        QVERIFY(DesktopSession::waitFor([&] { return settings.runsOfControls().size() == 1; }));
        const int before = settings.orangePixels();
        settings.type(spaceKey);
        QVERIFY(DesktopSession::waitFor([&] { return settings.orangePixels() > before + 100; }));
        QVERIFY(
            DesktopSession::waitFor([&] { return settings.stored().contains("Could not assign Control + Space."); }));
        other.ungrabKey(spaceCode, XCB_MOD_MASK_CONTROL);
        settings.type(spaceKey);
        QVERIFY(DesktopSession::waitFor([&] { return settings.orangePixels() == before; }));
        QVERIFY(settings.checkmarkPixels() > 20);
        QVERIFY(DesktopSession::waitFor(
            [&] { return settings.stored().contains("Control + Space is assigned to Zelmo."); }));
        settings.wall->pressShortcut(controlKey);
        QVERIFY(settings.wall->waitUntilShown());
    }

    void theFrameIsKeptOverCloseAndReopen_data() { windowManagers(); }
    void theFrameIsKeptOverCloseAndReopen() {
        QFETCH(QString, windowManager);
        SettingsOnScreen settings({.windowManager = windowManager});
        QVERIFY(settings.start(2));
        QVERIFY(settings.open());
        const QRect first = settings.place();
        settings.moveWindow({60, 90, 470, 410});
        QVERIFY(DesktopSession::waitFor([&] { return settings.place().size() == QSize(470, 410); }));
        QRect wanted;
        QVERIFY(DesktopSession::waitFor([&] {
            const QRect now = settings.place();
            return now.left() != first.left() && std::exchange(wanted, now) == now;
        }));
        for (int i = 0; i < 3; ++i) {
            if (i == 1)
                settings.typeWith(controlKey, letterW);
            else
                settings.session->display().close(*settings.window());
            QVERIFY(settings.waitUntilGone());
            QVERIFY(settings.ask());
            QVERIFY(settings.waitUntilShown());
            QVERIFY(DesktopSession::waitFor([&] { return settings.place() == wanted; }));
        }
    }

    void openedTwiceItIsOneWindowInFront_data() { windowManagers(); }
    void openedTwiceItIsOneWindowInFront() {
        QFETCH(QString, windowManager);
        SettingsOnScreen settings({.windowManager = windowManager});
        QVERIFY(settings.start(2));
        QVERIFY(settings.open());
        const auto first = settings.window();
        // The user goes on in another program, which has the focus then.
        settings.session->startProgram(QStringLiteral("xedit"));
        const XDisplay& display = settings.session->display();
        std::optional<xcb_window_t> other;
        QVERIFY(DesktopSession::waitFor([&] {
            other = display.viewableWindow(QStringLiteral("xedit"));
            return other.has_value();
        }));
        display.activate(*other);
        QVERIFY(DesktopSession::waitFor([&] { return display.activeClass() == QLatin1StringView("Xedit"); }));
        // Past the settings, which lie above.
        settings.moveWindow({800, 60, 460, 400});
        QVERIFY(DesktopSession::waitFor([&] { return settings.place().left() > 780; }));
        const QRect place = display.geometry(*other).value_or(QRect());
        QVERIFY(place.left() + 30 < 780);
        display.click(place.bottomLeft() + QPoint(30, -30));
        QVERIFY(display.typeText(QStringLiteral("abc")));
        QVERIFY(settings.ask());
        QVERIFY(settings.waitUntilShown());
        QCOMPARE(settings.window(), first);
        // Put down to the task bar, it comes back too.
        xcb_client_message_event_t message{};
        message.response_type = XCB_CLIENT_MESSAGE;
        message.format = 32;
        message.window = *first;
        const char name[] = "WM_CHANGE_STATE";
        xcb_connection_t* server = settings.session->display().connection();
        auto* atom = xcb_intern_atom_reply(server, xcb_intern_atom(server, 0, sizeof name - 1, name), nullptr);
        message.type = atom->atom;
        std::free(atom);
        message.data.data32[0] = iconicState;
        xcb_send_event(server, 0, settings.session->display().root(),
                       XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                       reinterpret_cast<const char*>(&message));
        QVERIFY(settings.waitUntilGone());
        QVERIFY(settings.ask());
        QVERIFY(settings.waitUntilShown());
        QCOMPARE(settings.window(), first);
    }

    void anotherIconReachesAllWindows() {
        SettingsOnScreen settings;
        QVERIFY(settings.session);
        settings.wall = std::make_unique<WallOnScreen>(*settings.session);
        QVERIFY(settings.wall->waitForCards(2));
        const xcb_window_t wall = *settings.session->display().viewableWindow(QStringLiteral("Zelmo"));
        QVERIFY(settings.wall->hide());
        QVERIFY(settings.open());
        const QByteArray before = settings.session->display().property(*settings.window(), "_NET_WM_ICON");
        QVERIFY(!before.isEmpty());
        QCOMPARE(settings.session->display().property(wall, "_NET_WM_ICON"), before);
        // Past two lists, a colour, six sliders and a switch.
        settings.type(tabKey, 11);
        // One after the other: a window may keep the first.
        QByteArray last = before;
        for (const char* style : {"aurora", "stack"}) {
            settings.type(rightKey);
            QVERIFY(DesktopSession::waitFor([&] { return settings.stored().contains(style); }));
            QByteArray now;
            QVERIFY(DesktopSession::waitFor([&] {
                now = settings.session->display().property(*settings.window(), "_NET_WM_ICON");
                return !now.isEmpty() && now != last &&
                       now == settings.session->display().property(wall, "_NET_WM_ICON");
            }));
            last = now;
        }
    }

    void whatItNeedsIsLoadedWhenItOpens() {
        SettingsOnScreen settings;
        QVERIFY(settings.start(2));
        const auto loaded = [&] {
            QFile maps(QStringLiteral("/proc/%1/maps").arg(settings.wall->process.processId()));
            return maps.open(QFile::ReadOnly) && maps.readAll().contains("QuickTemplates");
        };
        QVERIFY(!loaded());
        QVERIFY(settings.open());
        QVERIFY(loaded());
    }

    void onALowScreenAllOfTheWindowIsInSight() {
        SettingsOnScreen settings({.screen = {1024, 500}});
        QVERIFY(settings.session);
        settings.wall = std::make_unique<WallOnScreen>(*settings.session);
        QVERIFY(settings.wall->waitUntilShown());
        QVERIFY(settings.wall->hide());
        QVERIFY(settings.open());
        QVERIFY(QRect(0, 0, 1024, 500).contains(settings.place()));
        QCOMPARE(settings.place().width(), 560);
        QVERIFY(settings.place().height() > 400);
        // The wheel brings the end, where the one control of its kind is the button of the hidden apps.
        QCOMPARE(settings.runsOfControls().size(), 2);
        settings.session->display().movePointer(settings.place().center());
        QVERIFY(DesktopSession::waitFor([&] {
            const QImage before = settings.picture();
            settings.session->display().wheelDown();
            QTest::qWait(100);
            return settings.picture() == before && settings.runsOfControls().size() == 1;
        }));
    }

    void theyAreDarkWhereTheDesktopIs() {
        SettingsOnScreen settings;
        QVERIFY(settings.start(2));
        FakeService portal(*settings.connection, QStringLiteral("org.freedesktop.portal.Desktop"));
        const auto wish = [](uint value) {
            return Namespaces{{QStringLiteral("org.freedesktop.appearance"),
                               {{QStringLiteral("color-scheme"), QVariant::fromValue(value)}}}};
        };
        portal.answer(QStringLiteral("/org/freedesktop/portal/desktop:ReadAll"), QVariant::fromValue(wish(1)));
        QVERIFY(settings.ask());
        QVERIFY(settings.waitUntilShown());
        const auto ground = [&] { return settings.picture().pixelColor(5, 5).lightness(); };
        QVERIFY(DesktopSession::waitFor([&] { return ground() < 60 && ground() > 10; }));
        portal.send(QStringLiteral("/org/freedesktop/portal/desktop"),
                    QStringLiteral("org.freedesktop.portal.Settings"), QStringLiteral("SettingChanged"),
                    {QStringLiteral("org.freedesktop.appearance"), QStringLiteral("color-scheme"),
                     QVariant::fromValue(QDBusVariant(QVariant::fromValue(2U)))});
        QVERIFY(DesktopSession::waitFor([&] { return ground() > 200; }));
    }

    void theDesktopsWishForLessMovementIsHeard() {
        SettingsOnScreen settings;
        QVERIFY(settings.start(2));
        QVERIFY(settings.open());
        // Slow machines may miss it now and then.
        QVERIFY(DesktopSession::waitFor([&] { return placesOfTheKnob(settings).size() > 2; }));
        settings.typeWith(controlKey, letterW);
        QVERIFY(settings.waitUntilGone());
        settings.session->writeFile(QStringLiteral(".config/kdeglobals"), "[KDE]\nAnimationDurationFactor=0\n");
        QVERIFY(settings.open());
        for (int i = 0; i < 4; ++i)
            QCOMPARE(placesOfTheKnob(settings).size(), 2);
    }

    void theProgramEndsWithItsSettingsOpen() {
        SettingsOnScreen settings;
        QVERIFY(settings.start(2));
        QVERIFY(settings.open());
        settings.wall->process.terminate();
        QVERIFY(settings.wall->process.waitForFinished());
        QCOMPARE(settings.wall->process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(settings.wall->process.exitCode(), 0);
    }

private:
    // Where the left edge of the switch's knob is seen from a click on until it has crossed over.
    static QSet<int> placesOfTheKnob(const SettingsOnScreen& settings) {
        const QRect track(settings.place().topLeft() + QPoint(488, 508), QSize(36, 1));
        const auto place = [&] {
            const QImage row = settings.session->display().screenshot().copy(track);
            int x = 0;
            while (x < row.width() && qGray(row.pixel(x, 0)) < 250)
                ++x;
            return x;
        };
        constexpr int knobTravel = 16;
        const int first = place();
        QSet<int> seen{first};
        settings.session->display().click(track.center());
        DesktopSession::waitFor([&] {
            const int now = place();
            seen.insert(now);
            return std::abs(now - first) == knobTravel;
        });
        return seen;
    }
    static void windowManagers() {
        QTest::addColumn<QString>("windowManager");
        for (const char* name : {"openbox", "metacity"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }
};

QTEST_GUILESS_MAIN(SettingsOnDesktopTest)
#include "SettingsOnDesktopTest.moc"
