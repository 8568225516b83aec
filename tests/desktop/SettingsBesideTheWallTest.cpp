#include "appearance/LauncherBackgroundStyle.h"
#include "desktop/SettingsOnScreen.h"
#include "preferences/Preferences.h"
#include "support/CatalogFakes.h"
#include "ui/StyleColors.h"

using namespace zelmo;
using namespace zelmo::test;

namespace {

constexpr xcb_keysym_t commaKey = 0x002c;

// The colour of the corner at the end of a style's gradient.
QColor endOf(LauncherBackgroundStyle style) {
    FakeStorage storage;
    return toQColor(colors(style, Preferences(storage)).back());
}

bool areNear(const QColor& one, const QColor& other) {
    return std::abs(one.red() - other.red()) <= 3 && std::abs(one.green() - other.green()) <= 3 &&
           std::abs(one.blue() - other.blue()) <= 3;
}

} // namespace

// The settings while the wall is to be seen: on two monitors they are side by side.
class SettingsBesideTheWallTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theWallTakesTheBackgroundThatIsPicked() {
        SettingsOnScreen settings({.screen = {1800, 900}, .monitors = Monitors::leftPrimary});
        QVERIFY(settings.session);
        const XDisplay& display = settings.session->display();
        display.movePointer({1300, 860});
        settings.wall = std::make_unique<WallOnScreen>(*settings.session);
        QVERIFY(waitForWall(display));
        // From the wall, which goes.
        settings.typeWith(controlKey, commaKey);
        QVERIFY(settings.wall->waitUntilGone());
        QVERIFY(settings.waitUntilShown());
        settings.moveWindow({100, 60, 560, 680});
        QVERIFY(DesktopSession::waitFor([&] { return settings.place().right() < 880; }));
        // The user goes on at the right, where the wall comes up then.
        settings.session->startProgram(QStringLiteral("xlogo"),
                                       {QStringLiteral("-geometry"), QStringLiteral("200x200+1200+300")});
        QVERIFY(DesktopSession::waitFor([&] { return display.activeClass() == QLatin1StringView("XLogo"); }));
        settings.wall->pressShortcut(altKey);
        QVERIFY(waitForWall(display));
        QVERIFY(DesktopSession::waitFor([&] { return settings.runsOfControls().size() >= 2; }));
        QVERIFY(!areNear(end(settings), endOf(LauncherBackgroundStyle::linen)));

        // By the pointer: the third row of the list that opens below.
        const QRect picker = settings.runsOfControls().value(1);
        display.click(picker.center());
        const QPoint row(picker.left() - 80, picker.bottom() + 4 + 5 + 26 * 2 + 13);
        QVERIFY(DesktopSession::waitFor(
            [&] { return display.screenshot().pixelColor(row.x(), picker.bottom() + 4 + 5 + 3).saturation() > 150; }));
        display.click(row);
        QVERIFY(waitForEnd(settings, LauncherBackgroundStyle::linen));
        QVERIFY(display.viewableWindow(QStringLiteral("Zelmo")));
        // By keys, with the list closed.
        settings.type(tabKey);
        settings.typeWith(shiftKey, tabKey);
        for (const auto style : {LauncherBackgroundStyle::softSky, LauncherBackgroundStyle::morningMist,
                                 LauncherBackgroundStyle::candyPop}) {
            settings.type(downKey);
            QVERIFY(waitForEnd(settings, style));
        }
        QVERIFY(DesktopSession::waitFor([&] { return settings.stored().contains("<string>candyPop</string>"); }));
    }

private:
    static bool waitForWall(const XDisplay& display) {
        return DesktopSession::waitFor([&] {
            const auto window = display.viewableWindow(QStringLiteral("Zelmo"));
            return window && display.geometry(*window) == QRect(900, 0, 900, 900) && display.focusedWindow() == *window;
        });
    }
    // In the lower right corner of the right monitor.
    static QColor end(const SettingsOnScreen& settings) {
        return settings.session->display().screenshot().pixelColor(1798, 898);
    }
    static bool waitForEnd(const SettingsOnScreen& settings, LauncherBackgroundStyle style) {
        if (DesktopSession::waitFor([&] { return areNear(end(settings), endOf(style)); }))
            return true;
        qWarning("%s is shown; stored: %s", qPrintable(end(settings).name()), settings.stored().constData());
        return false;
    }
};

QTEST_GUILESS_MAIN(SettingsBesideTheWallTest)
#include "SettingsBesideTheWallTest.moc"
