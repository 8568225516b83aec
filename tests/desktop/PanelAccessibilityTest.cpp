#include "desktop/ScreenReader.h"
#include "desktop/TrayDesktop.h"

#include <QFile>
#include <QTest>

using namespace zelmo;
using namespace zelmo::test;

// Reads and works the menu-bar panel as a screen reader does.
class PanelAccessibilityTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() {
        m_desktop = std::make_unique<TrayDesktop>(QStringLiteral("trayer"));
        m_reader = std::make_unique<ScreenReader>(*m_desktop->session);
        QVERIFY(m_desktop->startBoth());
    }
    void init() {
        if (m_desktop->zelmo->state() == QProcess::Running && !m_desktop->panel())
            QVERIFY(m_desktop->openPanel());
    }
    void cleanupTestCase() {
        m_reader.reset();
        m_desktop.reset();
    }

    void everyControlHasItsNameRoleAndAction() {
        QVERIFY(m_reader->waitFor("push button", "Quit Zelmo"));
        QStringList controls;
        for (const AccessibleNode& node : m_reader->shown()) {
            if (node.name.isEmpty() || node.role == u"frame" || node.role == u"dialog")
                continue;
            controls.append(node.role + u' ' + node.name);
            QVERIFY2(node.is("focusable"), qPrintable(node.name));
            QVERIFY2(node.actions.contains(node.role == u"check box" ? u"Toggle" : u"Press"), qPrintable(node.name));
            QCOMPARE(node.is("focused"), node.name == u"Show App Wall");
        }
        QCOMPARE(
            controls,
            (QStringList{QStringLiteral("push button Show App Wall"), QStringLiteral("check box Open At Login Later"),
                         QStringLiteral("push button Refresh Apps"), QStringLiteral("push button Settings"),
                         QStringLiteral("push button Quit Zelmo")}));
    }

    void theFocusIsFollowed() {
        m_desktop->display().typeKey(tabKey);
        QVERIFY(m_reader->waitFor("check box", "Open At Login Later", "focused"));
        m_desktop->display().typeKey(downKey);
        QVERIFY(m_reader->waitFor("push button", "Refresh Apps", "focused"));
    }

    void theBoxIsCheckedAndStored() {
        QVERIFY(!m_reader->find("check box", "Open At Login Later")->is("checked"));
        QVERIFY(m_reader->act("check box", "Open At Login Later", "Toggle"));
        QVERIFY(m_reader->waitFor("check box", "Open At Login Later", "checked"));
        QVERIFY(
            DesktopSession::waitFor([this] { return stored().contains("<key>openAtLoginLater</key>\n\t<true/>"); }));
        // From another program.
        QByteArray other = stored();
        m_desktop->session->writeFile(preferencesFile, other.replace("<true/>", "<false/>"));
        QVERIFY(m_reader->waitFor("check box", "Open At Login Later",
                                  [](const AccessibleNode& node) { return !node.is("checked"); }));
    }

    void theSettingsOpenAndTheWallShows() {
        QVERIFY(m_reader->act("push button", "Settings"));
        QVERIFY(m_reader->waitFor("frame", "Zelmo Settings"));
        QVERIFY(m_desktop->waitForNoPanel());
        m_desktop->display().close(*m_desktop->display().viewableWindow(QStringLiteral("Zelmo Settings")));
        QVERIFY(m_reader->waitForNone("frame", "Zelmo Settings"));
        QVERIFY(m_desktop->openPanel());
        QVERIFY(m_reader->act("push button", "Show App Wall"));
        QVERIFY(m_desktop->waitForWall());
        QVERIFY(m_desktop->display().typeKey(escapeKey));
        QVERIFY(m_desktop->waitForNoWall());
        QVERIFY(m_desktop->waitForItem());
    }

    // The item in the tray has a mark of its own, whichever icon is chosen.
    void anotherIconReachesEveryWindowAtOnce() {
        const XDisplay& display = m_desktop->display();
        const auto icon = [&](xcb_window_t window) { return display.property(window, "_NET_WM_ICON"); };
        const xcb_window_t panel = *display.viewableWindow(QStringLiteral("Menu Panel"));
        QVERIFY(m_reader->act("push button", "Settings"));
        QVERIFY(m_reader->waitFor("radio button", "Mosaic", "checked"));
        const xcb_window_t settings = *display.viewableWindow(QStringLiteral("Zelmo Settings"));
        const QByteArray before = icon(settings);
        QVERIFY(!before.isEmpty());
        QCOMPARE(icon(panel), before);
        QVERIFY(m_reader->act("radio button", "Aurora"));
        QVERIFY(DesktopSession::waitFor([&] { return icon(settings) != before; }));
        const QByteArray chosen = icon(settings);
        QVERIFY(DesktopSession::waitFor([&] { return icon(panel) == chosen; }));
        display.close(settings);
        QVERIFY(m_reader->waitForNone("frame", "Zelmo Settings"));
        QVERIFY(m_desktop->openPanel());
        QVERIFY(m_reader->act("push button", "Show App Wall"));
        QVERIFY(m_desktop->waitForWall());
        QCOMPARE(icon(*display.viewableWindow(QStringLiteral("Zelmo"))), chosen);
        QVERIFY(display.typeKey(escapeKey));
        QVERIFY(m_desktop->waitForNoWall());
        QVERIFY(m_desktop->waitForItem());
    }

    // Last, for the program ends.
    void theProgramIsQuit() {
        QVERIFY(m_reader->act("push button", "Quit Zelmo"));
        QVERIFY(m_desktop->zelmo->waitForFinished(15'000));
        QCOMPARE(m_desktop->zelmo->exitCode(), 0);
    }

private:
    QByteArray stored() const {
        QFile file(m_desktop->session->home() + u'/' + preferencesFile);
        return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
    }

    static inline const QString preferencesFile = QStringLiteral(".config/zelmo/preferences.plist");

    std::unique_ptr<TrayDesktop> m_desktop;
    std::unique_ptr<ScreenReader> m_reader;
};

QTEST_GUILESS_MAIN(PanelAccessibilityTest)
#include "PanelAccessibilityTest.moc"
