#include "desktop/WallOnScreen.h"
#include "platform/linux/propertylist/PlistPreferencesFile.h"

#include <QDir>
#include <QFile>

using namespace zelmo;
using namespace zelmo::test;

namespace {

// On a screen of 1280 by 800.
constexpr QPoint selectButton(1132, 146);
constexpr QPoint uninstallButton(1132, 146);
constexpr QPoint cancelButton(652, 446);

// A desktop with the bundles One, Two, Three and Zero in the user's application folder; Three in a folder below.
class FourBundles {
public:
    explicit FourBundles(DesktopUser user) : session(DesktopSession::start({.user = user})) {
        if (!session)
            return;
        for (const QString& path : {pathOf("One"), pathOf("Two"), pathOf("Zero"), thirdPath})
            session->writeProgram(path + QStringLiteral("/Contents/Linux/run"), "#!/bin/sh\n");
        // The program itself stands where its user may not look.
        QFile program(QStringLiteral(ZELMO_PROGRAM));
        if (!program.open(QFile::ReadOnly))
            qFatal("the program is missing");
        session->writeProgram(QStringLiteral("zelmo"), program.readAll());
    }

    bool exists(const QString& path) const { return QFile::exists(session->home() + u'/' + path); }
    static QString pathOf(const char* name) {
        return QStringLiteral("Applications/%1.app").arg(QLatin1StringView(name));
    }
    bool waitForTitle(const char* title) const {
        return DesktopSession::waitFor([&] {
            const auto window = session->display().viewableWindow(QString::fromLatin1(title));
            return window && session->display().focusedWindow() == *window;
        });
    }
    bool waitForNoTitle(const char* title) const {
        return DesktopSession::waitFor(
            [&] { return !session->display().viewableWindow(QString::fromLatin1(title)).has_value(); });
    }
    // Of One, Three and Two; Zero comes last.
    bool selectThree() const {
        session->display().click(selectButton);
        // It is dim while nothing is selected.
        if (!waitForUninstallButton([](QColor color) { return color.red() > color.green() + 50 && color.red() < 200; }))
            return false;
        for (int column = 0; column < 3; ++column)
            clickAndWaitForEffect(cardCenter(*session, column));
        return waitForUninstallButton([](QColor color) { return color == QColor(255, 87, 97); });
    }
    // Until a plate is seen beside the icon.
    void clickAndWaitForEffect(QPoint place) const {
        const auto seen = [&] { return session->display().screenshot().pixelColor(place + QPoint(60, 0)); };
        const QColor before = seen();
        session->display().click(place);
        DesktopSession::waitFor([&] { return seen() != before; });
    }
    bool waitForUninstallButton(const std::function<bool(QColor)>& hasColor) const {
        const QPoint besideTheSymbol = uninstallButton - QPoint(15, 0);
        return DesktopSession::waitFor(
            [&] { return hasColor(session->display().screenshot().pixelColor(besideTheSymbol)); });
    }
    QStringList storedHidden() const {
        PlistPreferencesFile file(
            FileUrl::fromPath(session->home() + QStringLiteral("/.config/zelmo/preferences.plist")));
        const PreferenceValues values = file.read();
        const auto paths = values.constFind(QStringLiteral("hiddenAppPaths"));
        return paths == values.constEnd() ? QStringList() : std::get<QStringList>(*paths);
    }
    QStringList trashed() const {
        return QDir(session->home() + QStringLiteral("/.local/share/Trash/files"))
            .entryList(QDir::AllEntries | QDir::NoDotAndDotDot, QDir::Name);
    }

    std::unique_ptr<DesktopSession> session;
    static inline const QString thirdPath = QStringLiteral("Applications/Locked/Three.app");
};

} // namespace

// Moves applications to the Trash as a person does, with the pointer and the keyboard.
class UninstallOnDesktopTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void oneOfThreeIsRefused_data() {
        QTest::addColumn<DesktopUser>("user");
        QTest::newRow("the user of the tests") << DesktopUser::same;
        QTest::newRow("an ordinary user") << DesktopUser::ordinary;
    }
    void oneOfThreeIsRefused() {
        QFETCH(DesktopUser, user);
        const FourBundles bundles(user);
        QVERIFY(bundles.session);
        const XDisplay& display = bundles.session->display();
        const WallOnScreen wall(*bundles.session, bundles.session->home() + QStringLiteral("/zelmo"));
        QVERIFY(wall.waitForCards(4));
        QVERIFY(bundles.selectThree());
        display.click(uninstallButton);
        QVERIFY(bundles.waitForTitle("Uninstall 3 apps?"));
        refuseThird(bundles, user);
        QVERIFY(display.typeKey(returnKey));
        QVERIFY(bundles.waitForTitle("Could not uninstall Three"));
        QVERIFY(!bundles.exists(FourBundles::pathOf("One")));
        QVERIFY(!bundles.exists(FourBundles::pathOf("Two")));
        QCOMPARE(bundles.trashed(), (QStringList{QStringLiteral("One.app"), QStringLiteral("Two.app")}));
        const QString home = bundles.session->home() + u'/';
        QCOMPARE(bundles.storedHidden(),
                 (QStringList{home + FourBundles::pathOf("One"), home + FourBundles::pathOf("Two")}));
        QVERIFY(display.typeKey(spaceKey));
        QVERIFY(bundles.waitForNoTitle("Could not uninstall Three"));
        QVERIFY(wall.waitForCards(user == DesktopUser::ordinary ? 2 : 1));
        // Still in edit mode with the refused one selected: the button asks for it alone.
        if (user == DesktopUser::ordinary) {
            display.click(uninstallButton);
            QVERIFY(bundles.waitForTitle("Uninstall Three?"));
        }
    }

    void cancelChangesNothing_data() {
        QTest::addColumn<QString>("keys");
        QTest::newRow("Escape") << QStringLiteral("e");
        QTest::newRow("the other button") << QStringLiteral("tr");
        QTest::newRow("with an arrow") << QStringLiteral("l ");
    }
    void cancelChangesNothing() {
        QFETCH(QString, keys);
        const FourBundles bundles(DesktopUser::same);
        QVERIFY(bundles.session);
        const XDisplay& display = bundles.session->display();
        const WallOnScreen wall(*bundles.session);
        QVERIFY(wall.waitForCards(4));
        QVERIFY(bundles.selectThree());
        display.click(uninstallButton);
        QVERIFY(bundles.waitForTitle("Uninstall 3 apps?"));
        for (const QChar key : keys)
            QVERIFY(display.typeKey(symbolOf(key)));
        QVERIFY(bundles.waitForNoTitle("Uninstall 3 apps?"));
        QVERIFY(wall.waitForCards(4));
        QVERIFY(bundles.trashed().isEmpty());
        QVERIFY(bundles.storedHidden().isEmpty());
        // All three are still selected.
        display.click(uninstallButton);
        QVERIFY(bundles.waitForTitle("Uninstall 3 apps?"));
    }

    // The window manager hands it the focus for a moment all the same, so keys would race with that.
    void theWallBelowTakesNoClicks() {
        const FourBundles bundles(DesktopUser::same);
        QVERIFY(bundles.session);
        const XDisplay& display = bundles.session->display();
        const WallOnScreen wall(*bundles.session);
        QVERIFY(wall.waitForCards(4));
        QVERIFY(bundles.selectThree());
        display.click(uninstallButton);
        QVERIFY(bundles.waitForTitle("Uninstall 3 apps?"));
        display.click(cardCenter(*bundles.session, 0));
        display.click(selectButton);
        display.click(cancelButton);
        QVERIFY(bundles.waitForNoTitle("Uninstall 3 apps?"));
        display.click(uninstallButton);
        QVERIFY(bundles.waitForTitle("Uninstall 3 apps?"));
    }

    void aSignalWhileItAsksEndsTheProgramWithNothingChanged() {
        const FourBundles bundles(DesktopUser::same);
        QVERIFY(bundles.session);
        const WallOnScreen wall(*bundles.session);
        QVERIFY(wall.waitForCards(4));
        QVERIFY(bundles.selectThree());
        bundles.session->display().click(uninstallButton);
        QVERIFY(bundles.waitForTitle("Uninstall 3 apps?"));
        wall.process.terminate();
        QVERIFY(wall.process.waitForFinished());
        QCOMPARE(wall.process.exitStatus(), QProcess::NormalExit);
        QCOMPARE(wall.process.exitCode(), 0);
        QVERIFY(bundles.trashed().isEmpty());
        QVERIFY(bundles.storedHidden().isEmpty());
    }

    void theShortcutDoesNothingWhileItAsks() {
        const FourBundles bundles(DesktopUser::same);
        QVERIFY(bundles.session);
        const WallOnScreen wall(*bundles.session);
        QVERIFY(wall.waitForCards(4));
        QVERIFY(bundles.selectThree());
        bundles.session->display().click(uninstallButton);
        QVERIFY(bundles.waitForTitle("Uninstall 3 apps?"));
        wall.pressShortcut(altKey);
        QVERIFY(bundles.session->display().typeKey(escapeKey));
        QVERIFY(bundles.waitForNoTitle("Uninstall 3 apps?"));
        QVERIFY(wall.waitForCards(4));
        // Everything is as it was.
        bundles.session->display().click(uninstallButton);
        QVERIFY(bundles.waitForTitle("Uninstall 3 apps?"));
    }

private:
    // While the question stands. An ordinary user may not change the folder; of root's only what is gone is refused.
    static void refuseThird(const FourBundles& bundles, DesktopUser user) {
        const QString third = bundles.session->home() + u'/' + FourBundles::thirdPath;
        if (user == DesktopUser::ordinary)
            QVERIFY(QFile::setPermissions(QFileInfo(third).path(), QFile::ReadOwner | QFile::ExeOwner));
        else
            QVERIFY(QDir(third).removeRecursively());
    }
    static xcb_keysym_t symbolOf(QChar key) {
        switch (key.unicode()) {
        case 'e':
            return escapeKey;
        case 't':
            return tabKey;
        case 'l':
            return leftKey;
        case 'r':
            return returnKey;
        default:
            return spaceKey;
        }
    }
};

QTEST_GUILESS_MAIN(UninstallOnDesktopTest)
#include "UninstallOnDesktopTest.moc"
