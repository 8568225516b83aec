#include "desktop/ScreenReader.h"
#include "desktop/SettingsOnScreen.h"

using namespace zelmo;
using namespace zelmo::test;

namespace {

// What it is, what it is called, what is said of it, and its number with its range.
QString lineOf(const AccessibleNode& node) {
    QString line = node.role + u": " + node.name;
    if (!node.description.isEmpty() && node.description != node.name)
        line += u" (" + node.description + u')';
    if (node.value)
        line += QStringLiteral(" = %1 of %2 to %3")
                    .arg(node.value->current)
                    .arg(node.value->smallest)
                    .arg(node.value->largest);
    return line + (node.is("checked") ? QStringLiteral(" checked") : QString());
}

// By what it is worked.
QStringList actionsFor(const QString& role) {
    if (role == u"slider")
        return {QStringLiteral("Increase"), QStringLiteral("Decrease")};
    if (role == u"check box")
        return {QStringLiteral("Toggle")};
    if (role == u"push button" || role == u"combo box" || role == u"radio button")
        return {QStringLiteral("Press")};
    return {};
}

constexpr const char* form[]{
    "heading: Appearance",
    "combo box: Font (Apple Default)",
    "combo box: Background (Desktop Blur)",
    "push button: Background Color (#0d1424)",
    "push button: App Text Color (#fffaeb)",
    "slider: Title Size = 32 of 24 to 42",
    "slider: Subtitle Size = 12 of 10 to 18",
    "slider: Search Size = 18 of 14 to 26",
    "slider: Tab Size = 14 of 11 to 18",
    "slider: App Name Size = 15 of 12 to 22",
    "slider: App Label Size = 11 of 9 to 16",
    "check box: App Tile Backgrounds",
    "heading: App Icon",
    "radio button: Mosaic checked",
    "radio button: Aurora",
    "radio button: Stack",
    "radio button: Spark",
    "label: Four icon directions: Mosaic, Aurora, Stack, and Spark. The selected icon is applied to Zelmo while the "
    "app is "
    "running.",
    "label: Desktop Blur preview",
    "heading: Launcher Shortcut",
    "push button: Launcher Shortcut (Option + Space)",
    "label: Option + Space is assigned to Zelmo.",
    "label: If Control + Space still opens the old launcher, quit that old app or clear its shortcut first, then click "
    "Use "
    "Control + Space again.",
    "push button: Use Control + Space",
    "heading: Hidden Apps",
    "label: 1 hidden app can be restored.",
    "push button: Restore Hidden Apps",
    "heading: Coming Soon",
    "push button: Coming Soon (3)",
    "label: Tap three times to preview upcoming layouts.",
};

} // namespace

// Reads and works the settings as a screen reader does.
class SettingsAccessibilityTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() {
        m_settings = std::make_unique<SettingsOnScreen>(DesktopOptions{.screen = {1000, 1850}});
        QVERIFY(m_settings->session);
        m_settings->session->writeFile(
            preferencesFile,
            "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict><key>hiddenAppPaths</key><array><string>" +
                m_settings->session->home().toUtf8() +
                "/.local/share/applications/Mail.desktop</string></array></dict></plist>");
        m_reader = std::make_unique<ScreenReader>(*m_settings->session);
        m_settings->wall = std::make_unique<WallOnScreen>(*m_settings->session);
        QVERIFY(m_settings->wall->waitUntilPainted());
        QVERIFY(m_settings->wall->hide());
        QVERIFY(m_settings->ask());
        QVERIFY(m_settings->waitUntilShown());
        // Up to its last line.
        m_settings->moveWindow({50, 40, 560, 1700});
        QVERIFY(m_reader->waitFor("label", "Tap three times to preview upcoming layouts."));
    }
    void cleanupTestCase() {
        m_reader.reset();
        m_settings.reset();
    }

    void everyControlHasItsNameRoleValueAndAction() {
        QStringList found;
        for (const AccessibleNode& node : m_reader->shown()) {
            if (node.name.isEmpty() || node.role == u"frame")
                continue;
            found.append(lineOf(node));
            for (const QString& action : actionsFor(node.role)) {
                QVERIFY2(node.actions.contains(action), qPrintable(found.constLast()));
                // What is out of use is not.
                const bool isInUse = node.name != u"Background Color";
                QVERIFY2(node.is("focusable") == isInUse, qPrintable(found.constLast()));
                QVERIFY2(node.is("enabled") == isInUse, qPrintable(found.constLast()));
            }
        }
        QStringList expected;
        for (const char* line : form)
            expected.append(QString::fromLatin1(line));
        QCOMPARE(found, expected);
    }

    void whatIsOutOfUseDoesNothing() {
        QVERIFY(m_reader->act("push button", "Background Color"));
        // What was asked later is done.
        QVERIFY(m_reader->act("slider", "Title Size", "Decrease"));
        QVERIFY(m_reader->waitForNumber("Title Size", 31));
        QVERIFY(!m_reader->find("slider", "Hue"));
        QVERIFY(m_reader->setNumber("Title Size", 32));
    }

    void aListOpensAndItsRowsAreChosen() {
        QVERIFY(m_reader->act("combo box", "Background"));
        QVERIFY(m_reader->waitFor("list item", "Desktop Blur", "selected"));
        QVERIFY(m_reader->waitFor("list item", "Graphite Glow"));
        QVERIFY(m_reader->act("list item", "Custom Color"));
        QVERIFY(m_reader->waitForNone("list item", "Custom Color"));
        QVERIFY(m_reader->waitForDescription("combo box", "Background", "Custom Color"));
        QVERIFY(m_reader->waitFor("push button", "Background Color", "focusable"));
        QVERIFY(m_reader->waitFor("label", "Custom Color preview"));
        QVERIFY(isStored("<string>customColor</string>"));
    }

    void aColorIsWorkedThroughItsHue() {
        QVERIFY(m_reader->act("push button", "Background Color"));
        QVERIFY(m_reader->waitFor("slider", "Hue"));
        QVERIFY(m_reader->waitFor("color chooser", "Saturation and brightness"));
        QVERIFY(m_reader->setNumber("Hue", 0));
        QVERIFY(m_reader->waitForDescription("push button", "Background Color", "#240d0d"));
        QVERIFY(m_reader->act("slider", "Hue", "Increase"));
        QVERIFY(m_reader->waitForNumber("Hue", 1));
        // The same button closes it.
        QVERIFY(m_reader->act("push button", "Background Color"));
        QVERIFY(m_reader->waitForNone("slider", "Hue"));
    }

    void slidersAreSetAndStepped() {
        QVERIFY(m_reader->setNumber("Tab Size", 17));
        QVERIFY(m_reader->waitForNumber("Tab Size", 17));
        QVERIFY(isStored("<key>categoryChipFontSize</key>\n\t<real>17</real>"));
        QVERIFY(m_reader->act("slider", "Title Size", "Increase"));
        QVERIFY(m_reader->waitForNumber("Title Size", 33));
        QVERIFY(m_reader->act("slider", "App Label Size", "Decrease"));
        QVERIFY(m_reader->waitForNumber("App Label Size", 10));
        QVERIFY(isStored("<key>titleFontSize</key>\n\t<real>33</real>"));
        QVERIFY(isStored("<key>appCategoryFontSize</key>\n\t<real>10</real>"));
    }

    void theSwitchAndTheIconsAreWorked() {
        QVERIFY(m_reader->act("check box", "App Tile Backgrounds", "Toggle"));
        QVERIFY(m_reader->waitFor("check box", "App Tile Backgrounds", "checked"));
        QVERIFY(isStored("<key>showAppTileBackground</key>\n\t<true/>"));
        QVERIFY(m_reader->act("radio button", "Stack"));
        QVERIFY(m_reader->waitFor("radio button", "Stack", "checked"));
        QVERIFY(!m_reader->find("radio button", "Mosaic")->is("checked"));
        QVERIFY(isStored("<string>stack</string>"));
    }

    void theShortcutIsStepped() {
        QVERIFY(m_reader->act("push button", "Launcher Shortcut"));
        QVERIFY(m_reader->waitForDescription("push button", "Launcher Shortcut", "Control + Space"));
        QVERIFY(m_reader->waitFor("label", "Control + Space is assigned to Zelmo."));
        QVERIFY(m_reader->waitForDescription("push button", "Use Control + Space", "In use"));
        QVERIFY(m_reader->act("push button", "Launcher Shortcut"));
        QVERIFY(m_reader->waitFor("label", "Command + Space is assigned to Zelmo."));
        QVERIFY(m_reader->act("push button", "Use Control + Space"));
        QVERIFY(m_reader->waitFor("label", "Control + Space is assigned to Zelmo."));
    }

    void hiddenAppsAreRestored() {
        QVERIFY(m_reader->act("push button", "Restore Hidden Apps"));
        QVERIFY(m_reader->waitFor("label", "No apps are hidden from Zelmo."));
        QVERIFY(DesktopSession::waitFor([this] { return !m_settings->stored().contains("Mail.desktop"); }));
    }

    void threeTapsRevealTheInterfaces() {
        for (const char* next : {"2", "1"}) {
            QVERIFY(m_reader->act("push button", "Coming Soon"));
            QVERIFY(m_reader->waitForDescription("push button", "Coming Soon", next));
        }
        QVERIFY(m_reader->act("push button", "Coming Soon"));
        QVERIFY(m_reader->waitForDescription("push button", "Experimental Interfaces", "Unlocked"));
        QVERIFY(m_reader->waitFor("panel", "Interface"));
        QVERIFY(m_reader->waitFor("radio button", "Grid", "checked"));
        QVERIFY(m_reader->act("radio button", "Minimal"));
        QVERIFY(m_reader->waitFor("radio button", "Minimal", "checked"));
        QVERIFY(isStored("<string>minimal</string>"));
    }

    void whatAnotherProgramStoresIsSaid() {
        QVERIFY(isStored("<string>minimal</string>"));
        m_settings->session->writeFile(
            preferencesFile, "<?xml version=\"1.0\"?><plist version=\"1.0\"><dict>"
                             "<key>launcherFontStyle</key><string>slate</string>"
                             "<key>launcherTextRed</key><real>0</real><key>searchFontSize</key><real>25</real>"
                             "<key>showAppTileBackground</key><false/><key>appIconStyle</key><string>spark</string>"
                             "<key>hiddenAppPaths</key><array><string>/a.app</string><string>/b.app</string></array>"
                             "</dict></plist>");
        QVERIFY(m_reader->waitForDescription("combo box", "Font", "Slate"));
        QVERIFY(m_reader->waitForDescription("combo box", "Background", "Desktop Blur"));
        QVERIFY(m_reader->waitForDescription("push button", "App Text Color", "#00faeb"));
        QVERIFY(m_reader->waitForNumber("Search Size", 25));
        QVERIFY(m_reader->waitForNumber("Title Size", 32));
        QVERIFY(m_reader->waitFor("radio button", "Spark", "checked"));
        QVERIFY(m_reader->waitFor("radio button", "Grid", "checked"));
        QVERIFY(m_reader->waitFor("label", "2 hidden apps can be restored."));
        QVERIFY(m_reader->waitFor("check box", "App Tile Backgrounds",
                                  [](const AccessibleNode& node) { return !node.is("checked"); }));
    }

private:
    bool isStored(const char* text) const {
        return DesktopSession::waitFor([&] { return m_settings->stored().contains(text); });
    }

    static inline const QString preferencesFile = QStringLiteral(".config/zelmo/preferences.plist");

    std::unique_ptr<SettingsOnScreen> m_settings;
    std::unique_ptr<ScreenReader> m_reader;
};

QTEST_GUILESS_MAIN(SettingsAccessibilityTest)
#include "SettingsAccessibilityTest.moc"
