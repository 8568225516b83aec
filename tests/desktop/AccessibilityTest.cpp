#include "desktop/WallOnScreen.h"
#include "support/AccessibleTree.h"

using namespace zelmo::test;

namespace {

const QString program = QStringLiteral("zelmo");

} // namespace

// Reads and works the wall as a screen reader does.
class AccessibilityTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() {
        m_session = DesktopSession::start({.screen = {1600, 900}});
        QVERIFY(m_session);
        m_session->environment().insert(QStringLiteral("QT_LINUX_ACCESSIBILITY_ALWAYS_ON"), QStringLiteral("1"));
        m_session->installEntry(QStringLiteral("Mail"), "Categories=Network;Email;\n");
        m_session->installEntry(QStringLiteral("Notes"), "Categories=Utility;\n");
        m_tree = std::make_unique<AccessibleTree>(
            m_session->environment().value(QStringLiteral("DBUS_SESSION_BUS_ADDRESS")), m_session->displayName());
        m_wall = std::make_unique<WallOnScreen>(*m_session);
        QVERIFY(m_wall->waitForCards(2));
        QVERIFY(waitFor("push button", "Notes"));
    }
    void cleanupTestCase() {
        m_wall.reset();
        m_tree.reset();
        m_session.reset();
    }

    void everyControlHasItsTitleAndRole() {
        QStringList controls;
        for (const AccessibleNode& node : m_tree->nodes(program)) {
            if (node.is("showing") && (node.role == u"push button" || node.role == u"radio button" ||
                                       node.role == u"text" || node.role == u"entry"))
                controls.append(node.role + u' ' + node.name);
        }
        QCOMPARE(controls,
                 (QStringList{
                     QStringLiteral("push button Close"), QStringLiteral("text Search apps"),
                     QStringLiteral("push button Select"), QStringLiteral("push button Settings"),
                     QStringLiteral("radio button Most Used"), QStringLiteral("radio button All Apps"),
                     QStringLiteral("radio button Productivity & Finance"), QStringLiteral("radio button Utilities"),
                     QStringLiteral("radio button Developer Tools"), QStringLiteral("radio button Social"),
                     QStringLiteral("radio button Entertainment"), QStringLiteral("radio button Creativity"),
                     QStringLiteral("radio button Information & Reading"), QStringLiteral("radio button Other"),
                     QStringLiteral("push button Mail"), QStringLiteral("push button Notes")}));
    }

    void helpTextsAreDescriptions() {
        const auto select = m_tree->find(program, QStringLiteral("push button"), QStringLiteral("Select"));
        QVERIFY(select);
        QCOMPARE(select->description, QStringLiteral("Select multiple apps"));
        const auto mostUsed = m_tree->find(program, QStringLiteral("radio button"), QStringLiteral("Most Used"));
        QVERIFY(mostUsed);
        QCOMPARE(mostUsed->description, QStringLiteral("Apps ranked by active time while Zelmo is running"));
    }

    void theSelectedChipIsChecked() {
        QVERIFY(waitFor("radio button", "All Apps", "checked"));
        QVERIFY(act("radio button", "Social", "Press"));
        QVERIFY(waitFor("radio button", "Social", "checked"));
        QVERIFY(!m_tree->find(program, QStringLiteral("radio button"), QStringLiteral("All Apps"))->is("checked"));
        QVERIFY(waitForNone("push button", "Notes"));
        QVERIFY(act("radio button", "All Apps", "Press"));
        QVERIFY(waitFor("push button", "Notes"));
    }

    void theFocusIsFollowed() {
        QVERIFY(waitFor("text", "Search apps", "focused"));
        m_session->display().typeKey(tabKey);
        QVERIFY(waitFor("push button", "Select", "focused"));
        m_session->display().typeKey(tabKey);
        m_session->display().typeKey(tabKey);
        QVERIFY(waitFor("radio button", "All Apps", "focused"));
        m_session->display().typeKey(tabKey);
        QVERIFY(waitFor("push button", "Mail", "focused"));
        m_session->display().typeText(QStringLiteral("n"));
        QVERIFY(waitFor("text", "Search apps", "focused"));
        QVERIFY(waitForNone("push button", "Mail"));
        m_session->display().typeKey(backspaceKey);
        QVERIFY(waitFor("push button", "Mail"));
    }

    void selectedCardsAreSelected() {
        QVERIFY(act("push button", "Select", "Press"));
        QVERIFY(waitFor("push button", "Mail", "selectable"));
        const auto uninstall = m_tree->find(program, QStringLiteral("push button"), QStringLiteral("Uninstall"));
        QVERIFY(uninstall);
        QVERIFY(!uninstall->is("enabled"));
        QVERIFY(!uninstall->is("focusable"));
        QCOMPARE(uninstall->description, QStringLiteral("Select apps to uninstall"));
        QVERIFY(act("push button", "Mail", "Press"));
        QVERIFY(waitFor("push button", "Mail", "selected"));
        QVERIFY(waitFor("push button", "Uninstall", "enabled"));
        QVERIFY(waitFor("push button", "Uninstall", "focusable"));
        QVERIFY(act("push button", "Mail", "Press"));
        QVERIFY(DesktopSession::waitFor([this] {
            return !m_tree->find(program, QStringLiteral("push button"), QStringLiteral("Uninstall"))->is("enabled");
        }));
        QVERIFY(act("push button", "Done", "Press"));
        QVERIFY(waitFor("push button", "Select"));
        QVERIFY(!m_tree->find(program, QStringLiteral("push button"), QStringLiteral("Mail"))->is("selected"));
    }

    void aButtonSaysThatItCanBeUsedNow() {
        QVERIFY(act("push button", "Select", "Press"));
        QVERIFY(waitFor("push button", "Uninstall"));
        AccessibleChanges changes(QStringLiteral("enabled"));
        QStringList heard;
        const auto waitToHear = [&](const QString& what) {
            return DesktopSession::waitFor([&] {
                heard += changes.take();
                return heard.contains(what);
            });
        };
        QVERIFY(act("push button", "Mail", "Press"));
        QVERIFY(waitToHear(QStringLiteral("Uninstall on")));
        QVERIFY(act("push button", "Mail", "Press"));
        QVERIFY(waitToHear(QStringLiteral("Uninstall off")));
        QVERIFY(act("push button", "Done", "Press"));
        QVERIFY(waitFor("push button", "Select"));
    }

    // Last, for the wall goes.
    void aCardIsLaunchedByItsAction() {
        QVERIFY(act("push button", "Notes", "Press"));
        QVERIFY(DesktopSession::waitFor([this] { return m_session->launched().contains(QStringLiteral("Notes")); }));
        QVERIFY(m_wall->waitUntilGone());
    }

private:
    bool waitFor(const char* role, const char* name, const char* state = "showing") const {
        return DesktopSession::waitFor([&] {
            const auto node = m_tree->find(program, QString::fromLatin1(role), QString::fromLatin1(name));
            return node && node->is(state);
        });
    }
    bool waitForNone(const char* role, const char* name) const {
        return DesktopSession::waitFor(
            [&] { return !m_tree->find(program, QString::fromLatin1(role), QString::fromLatin1(name)); });
    }
    bool act(const char* role, const char* name, const char* action) const {
        return m_tree->act(program, QString::fromLatin1(role), QString::fromLatin1(name), QString::fromLatin1(action));
    }

    std::unique_ptr<DesktopSession> m_session;
    std::unique_ptr<AccessibleTree> m_tree;
    std::unique_ptr<WallOnScreen> m_wall;
};

QTEST_MAIN(AccessibilityTest)
#include "AccessibilityTest.moc"
