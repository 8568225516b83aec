#include "ui/AccessibleButton.h"

#include "ui/WallFixture.h"

#include <QAccessible>

using namespace zelmo;
using namespace zelmo::test;

namespace {

QAccessible::State stateOf(QQuickItem* item) {
    return QAccessible::queryAccessibleInterface(item)->state();
}

// What a screen reader is told of a button, and of its place in the tree.
QStringList description(QQuickItem* item) {
    QAccessibleInterface* const button = QAccessible::queryAccessibleInterface(item);
    QAccessibleInterface* const parent = button->parent();
    const QAccessible::State state = button->state();
    const QRect place = button->rect();
    QStringList lines{
        QString::number(button->role()),
        button->text(QAccessible::Name),
        button->text(QAccessible::Description),
        button->text(QAccessible::Value),
        QStringLiteral("%1 %2 %3 %4").arg(place.x()).arg(place.y()).arg(place.width()).arg(place.height()),
        parent->text(QAccessible::Name),
        QString::number(parent->role()),
        QString::number(parent->indexOfChild(button)),
        QString::number(button->childCount()),
        QStringLiteral("focusable %1 focused %2 invisible %3 offscreen %4 pressed %5")
            .arg(state.focusable)
            .arg(state.focused)
            .arg(state.invisible)
            .arg(state.offscreen)
            .arg(state.pressed),
    };
    // The toolkit has some of them twice.
    QStringList actions = button->actionInterface()->actionNames();
    actions.removeDuplicates();
    lines.append(actions);
    if (parent->child(parent->indexOfChild(button)) != button)
        lines.append(QStringLiteral("not a child of its parent"));
    return lines;
}

} // namespace

class AccessibleButtonTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // First, for what is installed stays.
    void theySayWhatTheToolkitsDo() {
        const auto descriptions = [] {
            WallFixture fixture(2);
            fixture.waitForCards(2);
            QStringList all = description(fixture.button("Select"));
            fixture.store.store->setIsEditingApps(true);
            all += description(fixture.button("Uninstall")) + description(fixture.button("Done"));
            fixture.store.store->toggleSelection(fixture.store.store->apps()[0]);
            QQuickItem* const uninstall = fixture.button("Uninstall");
            uninstall->forceActiveFocus();
            return all + description(uninstall);
        };
        const QStringList toolkit = descriptions();
        installAccessibleButtons();
        QCOMPARE(descriptions(), toolkit);
    }

    void theyAreDisabledWhileOutOfUse() {
        installAccessibleButtons();
        WallFixture fixture(2);
        QVERIFY(fixture.waitForCards(2));
        fixture.store.store->setIsEditingApps(true);
        QQuickItem* const uninstall = fixture.button("Uninstall");
        QVERIFY(stateOf(uninstall).disabled);
        QVERIFY(!stateOf(fixture.button("Done")).disabled);
        fixture.store.store->toggleSelection(fixture.store.store->apps()[0]);
        QVERIFY(!stateOf(uninstall).disabled);
        fixture.store.store->toggleSelection(fixture.store.store->apps()[0]);
        QVERIFY(stateOf(uninstall).disabled);
    }

    void theyAreWorkedByTheirActionsWhileInUse() {
        installAccessibleButtons();
        WallFixture fixture(2);
        QVERIFY(fixture.waitForCards(2));
        LauncherStore& store = *fixture.store.store;
        const auto act = [&fixture](const char* title, const QString& action) {
            QAccessible::queryAccessibleInterface(fixture.button(title))->actionInterface()->doAction(action);
        };
        act("Select", QAccessibleActionInterface::setFocusAction());
        QVERIFY(fixture.button("Select")->hasActiveFocus());
        QVERIFY(stateOf(fixture.button("Select")).focused);
        act("Select", QAccessibleActionInterface::pressAction());
        QVERIFY(store.isEditingApps());
        act("Uninstall", QAccessibleActionInterface::pressAction());
        act("Uninstall", QAccessibleActionInterface::setFocusAction());
        QVERIFY(!fixture.button("Uninstall")->hasActiveFocus());
        QCOMPARE(store.apps().size(), 2);
        act("Done", QAccessibleActionInterface::pressAction());
        QVERIFY(!store.isEditingApps());
    }

    void aButtonThatIsGoneSaysNothing() {
        installAccessibleButtons();
        auto fixture = std::make_unique<WallFixture>(1);
        const QAccessible::Id id =
            QAccessible::uniqueId(QAccessible::queryAccessibleInterface(fixture->button("Select")));
        QVERIFY(QAccessible::accessibleInterface(id));
        fixture.reset();
        QVERIFY(!QAccessible::accessibleInterface(id));
    }
};

QTEST_MAIN(AccessibleButtonTest)
#include "AccessibleButtonTest.moc"
