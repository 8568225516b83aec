#include "ui/KeyFixture.h"

using namespace zelmo;
using namespace zelmo::test;

namespace {

bool isInSight(Keys& keys, int number) {
    const QQuickItem* card = keys.wall.card(number);
    return card && keys.wall.place(keys.wall.area()).contains(keys.wall.place(card));
}

} // namespace

class WallKeysTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void tabGoesThroughTheWallAndBack() {
        Keys keys(12);
        QVERIFY(keys.isReady());
        QCOMPARE(focused(keys.wall), QStringLiteral("search"));
        const QStringList order{QStringLiteral("Select"),   QStringLiteral("Settings"),
                                QStringLiteral("All Apps"), app(0),
                                QStringLiteral("Close"),    QStringLiteral("search")};
        for (const QString& stop : order)
            QCOMPARE(keys.press(Qt::Key_Tab), stop);
        for (qsizetype i = order.size() - 2; i >= 0; --i)
            QCOMPARE(keys.press(Qt::Key_Backtab), order[i]);
    }

    void whatIsOutOfUseIsPassedOver() {
        Keys keys(3);
        QVERIFY(keys.isReady());
        keys.wall.store.store->setIsEditingApps(true);
        QCOMPARE(keys.press(Qt::Key_Tab), QStringLiteral("Done"));
        keys.wall.store.store->toggleSelection(keys.wall.store.store->apps()[0]);
        QCOMPARE(keys.press(Qt::Key_Backtab), QStringLiteral("Uninstall"));
    }

    void arrowsGoDownFromSearchToChipsAndCardsAndBackUp() {
        Keys keys(12);
        QVERIFY(keys.isReady());
        QCOMPARE(keys.press(Qt::Key_Down), QStringLiteral("All Apps"));
        QCOMPARE(keys.press(Qt::Key_Right), QStringLiteral("Productivity & Finance"));
        QCOMPARE(keys.press(Qt::Key_Left), QStringLiteral("All Apps"));
        QCOMPARE(keys.press(Qt::Key_Left), QStringLiteral("Most Used"));
        QCOMPARE(keys.press(Qt::Key_Down), app(0));
        QCOMPARE(keys.press(Qt::Key_Right), app(1));
        QCOMPARE(keys.press(Qt::Key_Down), app(7));
        QCOMPARE(keys.press(Qt::Key_Left), app(6));
        QCOMPARE(keys.press(Qt::Key_Left), app(5));
        QCOMPARE(keys.press(Qt::Key_Down), app(11));
        // There is nothing beyond the ends.
        QCOMPARE(keys.press(Qt::Key_Right), app(11));
        QCOMPARE(keys.press(Qt::Key_Down), app(11));
        QCOMPARE(keys.press(Qt::Key_Up), app(5));
        // The bar begins again at the selected chip.
        QCOMPARE(keys.press(Qt::Key_Up), QStringLiteral("All Apps"));
        QCOMPARE(keys.press(Qt::Key_Up), QStringLiteral("search"));
    }

    void aShorterLastLineIsReachedFromAnywhere() {
        Keys keys(8);
        QVERIFY(keys.isReady());
        keys.press(Qt::Key_Down);
        keys.press(Qt::Key_Down);
        for (int i = 0; i < 4; ++i)
            keys.press(Qt::Key_Right);
        QCOMPARE(focused(keys.wall), app(4));
        QCOMPARE(keys.press(Qt::Key_Down), app(7));
    }

    void homeAndEndGoToTheFirstAndLastCard() {
        Keys keys(400);
        QVERIFY(keys.isReady());
        keys.press(Qt::Key_Down);
        keys.press(Qt::Key_Down);
        QCOMPARE(keys.press(Qt::Key_End), app(399));
        QVERIFY(isInSight(keys, 399));
        QCOMPARE(keys.press(Qt::Key_Home), app(0));
        QVERIFY(isInSight(keys, 0));
        QCOMPARE(number(keys.wall.area(), "contentY"), 0.0);
        const QString nextPage = keys.press(Qt::Key_PageDown);
        QVERIFY(nextPage > app(5) && nextPage < app(40));
        QVERIFY(isInSight(keys, nextPage.mid(4).toInt()));
        // In the same column.
        QCOMPARE(nextPage.mid(4).toInt() % 6, 0);
        QCOMPARE(keys.press(Qt::Key_PageUp), app(0));
        keys.press(Qt::Key_End);
        QCOMPARE(keys.press(Qt::Key_PageDown), app(399));
    }

    void pageKeysScrollWhileTheSearchHasTheFocus() {
        Keys keys(400);
        QVERIFY(keys.isReady());
        QCOMPARE(keys.press(Qt::Key_PageDown), QStringLiteral("search"));
        const double down = number(keys.wall.area(), "contentY");
        QVERIFY(down > 100);
        keys.press(Qt::Key_PageDown);
        QVERIFY(number(keys.wall.area(), "contentY") > down + 100);
        keys.press(Qt::Key_PageUp);
        keys.press(Qt::Key_PageUp);
        keys.press(Qt::Key_PageUp);
        QCOMPARE(number(keys.wall.area(), "contentY"), 0.0);
    }

    void keysPressWhatHasTheFocus_data() {
        QTest::addColumn<int>("key");
        QTest::newRow("Return") << int(Qt::Key_Return);
        QTest::newRow("Enter") << int(Qt::Key_Enter);
        QTest::newRow("Space") << int(Qt::Key_Space);
    }
    void keysPressWhatHasTheFocus() {
        QFETCH(int, key);
        Keys keys(6);
        QVERIFY(keys.isReady());
        LauncherStore& store = *keys.wall.store.store;
        store.showOverlay();
        keys.press(Qt::Key_Down);
        keys.press(Qt::Key_Right);
        keys.press(Qt::Key_Right);
        keys.press(Qt::Key_Right);
        QCOMPARE(focused(keys.wall), QStringLiteral("Developer Tools"));
        keys.press(Qt::Key(key));
        QCOMPARE(store.selectedCategory(), AppCategory::developer);
        QVERIFY(keys.wall.waitForCards(3));
        keys.press(Qt::Key_Backtab);
        QCOMPARE(keys.press(Qt::Key_Backtab), QStringLiteral("Select"));
        keys.press(Qt::Key(key));
        QVERIFY(store.isEditingApps());
        keys.wall.searchField()->forceActiveFocus();
        keys.press(Qt::Key_Down);
        QCOMPARE(keys.press(Qt::Key_Down), app(1));
        keys.press(Qt::Key(key));
        QCOMPARE(store.selectedAppIDs(), QSet<FileUrl>{store.apps()[1].id});
        QVERIFY(store.searchText().isEmpty());
        store.finishEditing();
        keys.press(Qt::Key(key));
        QVERIFY(keys.wall.store.log.contains(QStringLiteral("open /Applications/App 00001.app")));
    }

    // Typed before the program comes to anything else.
    void keysThatComeAtOnceAreHeededInTheirOrder() {
        Keys keys(20);
        QVERIFY(keys.isReady());
        keys.wall.store.store->showOverlay();
        for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Right, Qt::Key_Return})
            QTest::keyClick(&keys.wall.window, key);
        QVERIFY(keys.wall.store.log.contains(QStringLiteral("open /Applications/App 00007.app")));
    }

    void enterInTheSearchDoesNothing() {
        Keys keys(6);
        QVERIFY(keys.isReady());
        LauncherStore& store = *keys.wall.store.store;
        store.showOverlay();
        keys.wall.store.log.clear();
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter})
            QCOMPARE(keys.press(key), QStringLiteral("search"));
        store.setSearchText(QStringLiteral("00002"));
        QVERIFY(keys.wall.waitForCards(1));
        for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter})
            QCOMPARE(keys.press(key), QStringLiteral("search"));
        QVERIFY(store.overlayIsVisible());
        QVERIFY(keys.wall.store.log.isEmpty());
        QCOMPARE(store.searchText(), QStringLiteral("00002"));
    }

    void typingOnACardSearches() {
        Keys keys(12);
        QVERIFY(keys.isReady());
        keys.press(Qt::Key_Down);
        keys.press(Qt::Key_Down);
        QCOMPARE(focused(keys.wall), app(0));
        QTest::keyClick(&keys.wall.window, '0');
        QCOMPARE(focused(keys.wall), QStringLiteral("search"));
        QTest::keyClick(&keys.wall.window, '3');
        QCOMPARE(keys.wall.store.store->searchText(), QStringLiteral("03"));
        QVERIFY(keys.wall.waitForCards(1));
        keys.press(Qt::Key_Down);
        QCOMPARE(keys.press(Qt::Key_Down), app(3));
        // What is meant for the window or another program is not typed.
        QTest::keyClick(&keys.wall.window, 'k', Qt::ControlModifier);
        QTest::keyClick(&keys.wall.window, 'k', Qt::AltModifier);
        QCOMPARE(focused(keys.wall), app(3));
        QCOMPARE(keys.press(Qt::Key_Backspace), QStringLiteral("search"));
        QCOMPARE(keys.wall.store.store->searchText(), QStringLiteral("0"));
    }

    void theFocusStaysOnItsCardAsTheListChanges() {
        Keys keys(12);
        QVERIFY(keys.isReady());
        keys.wall.store.waitForRest();
        keys.press(Qt::Key_Down);
        keys.press(Qt::Key_Down);
        for (int i = 0; i < 4; ++i)
            keys.press(Qt::Key_Right);
        QCOMPARE(focused(keys.wall), app(4));
        QList<FoundApplication> fewer = applications(12);
        fewer.remove(1, 2);
        keys.wall.store.installed.set(fewer);
        keys.wall.store.store->refresh();
        QVERIFY(keys.wall.waitForCards(10));
        QCOMPARE(focused(keys.wall), app(4));
        QCOMPARE(keys.press(Qt::Key_Left), app(3));
        // One that goes leaves it to the one that takes its place.
        fewer.remove(1);
        keys.wall.store.installed.set(fewer);
        keys.wall.store.store->refresh();
        QTRY_COMPARE(focused(keys.wall), app(4));
        // With the last card it goes to the search.
        keys.wall.store.installed.set({});
        keys.wall.store.store->refresh();
        QTRY_COMPARE(focused(keys.wall), QStringLiteral("search"));
    }

    void theFocusStaysOnACardThatIsScrolledAway() {
        Keys keys(400);
        QVERIFY(keys.isReady());
        keys.wall.store.waitForRest();
        keys.press(Qt::Key_Down);
        keys.press(Qt::Key_Down);
        QCOMPARE(keys.press(Qt::Key_Right), app(1));
        const auto scrollAway = [&] {
            keys.wall.area()->setProperty("contentY", 3000);
            keys.wall.settle();
            return !isInSight(keys, focused(keys.wall).mid(4).toInt());
        };
        QVERIFY(scrollAway());
        QCOMPARE(focused(keys.wall), app(1));
        // Keys go on from there.
        QCOMPARE(keys.press(Qt::Key_Right), app(2));
        QVERIFY(isInSight(keys, 2));
        // One that goes meanwhile leaves it to the one that takes its place.
        QVERIFY(scrollAway());
        QList<FoundApplication> fewer = applications(400);
        fewer.remove(2);
        keys.wall.store.installed.set(fewer);
        keys.wall.store.store->refresh();
        QTRY_COMPARE(focused(keys.wall), app(3));
        QVERIFY(isInSight(keys, 3));
    }

    void theSearchHasTheFocusEachTimeThatTheWallIsShown() {
        Keys keys(12);
        QVERIFY(keys.isReady());
        LauncherStore& store = *keys.wall.store.store;
        store.showOverlay();
        keys.press(Qt::Key_Down);
        keys.press(Qt::Key_Down);
        QCOMPARE(keys.press(Qt::Key_Right), app(1));
        store.hideOverlay();
        store.showOverlay();
        QCOMPARE(focused(keys.wall), QStringLiteral("search"));
        // And the cards begin anew.
        keys.press(Qt::Key_Down);
        QCOMPARE(keys.press(Qt::Key_Down), app(0));
    }

    void theFocusIsToBeSeen() {
        Keys keys(6);
        QVERIFY(keys.isReady());
        const auto difference = [&](const QImage& before, QQuickItem* item) {
            return before.copy(keys.wall.place(item).toRect()) !=
                   keys.wall.settle().copy(keys.wall.place(item).toRect());
        };
        QImage before = keys.wall.settle();
        keys.press(Qt::Key_Down);
        QVERIFY(difference(before, keys.wall.chip("All Apps")));
        before = keys.wall.settle();
        keys.press(Qt::Key_Down);
        const QRect around = keys.wall.place(keys.wall.card(0)).adjusted(-6, -6, 6, 6).toRect();
        QVERIFY(before.copy(around) != keys.wall.settle().copy(around));
    }

    void theFocusIsNeverOnWhatIsGone() {
        Keys keys(6);
        QVERIFY(keys.isReady());
        LauncherStore& store = *keys.wall.store.store;
        const auto isInReach = [&] {
            const QQuickItem* item = keys.wall.window.activeFocusItem();
            return item && item->isVisible() && item->isEnabled();
        };
        QCOMPARE(keys.press(Qt::Key_Tab), QStringLiteral("Select"));
        keys.press(Qt::Key_Return);
        QVERIFY(store.isEditingApps());
        QVERIFY2(isInReach(), qPrintable(focused(keys.wall)));
        // The mode is left the same way.
        keys.wall.button("Done")->forceActiveFocus();
        keys.press(Qt::Key_Return);
        QVERIFY(!store.isEditingApps());
        QVERIFY2(isInReach(), qPrintable(focused(keys.wall)));
        // A button that goes out of use takes nothing with it.
        store.setIsEditingApps(true);
        store.toggleSelection(store.apps()[0]);
        keys.wall.button("Uninstall")->forceActiveFocus();
        store.toggleSelection(store.apps()[0]);
        QTRY_COMPARE(focused(keys.wall), QStringLiteral("search"));
        QTest::keyClick(&keys.wall.window, 'x');
        QCOMPARE(store.searchText(), QStringLiteral("x"));
    }

    void theRingIsWholeBetweenTiles() {
        Keys keys(20, {{QStringLiteral("launcherInterfaceStyle"), QStringLiteral("tiles")}});
        QVERIFY(keys.isReady());
        keys.press(Qt::Key_Down);
        keys.press(Qt::Key_Down);
        QCOMPARE(keys.press(Qt::Key_Right), app(1));
        const QRect place = keys.wall.place(keys.wall.card(1)).toRect();
        const QImage wall = keys.wall.settle();
        // On the three sides on which there are other tiles.
        for (const QPoint side :
             {QPoint(place.left() - 4, place.center().y()), QPoint(place.right() + 4, place.center().y()),
              QPoint(place.center().x(), place.bottom() + 4)})
            QVERIFY(qGray(wall.pixel(side)) > 220);
    }

    void arrowsGoFromButtonToButton() {
        Keys keys(2);
        QVERIFY(keys.isReady());
        keys.wall.button("Select")->forceActiveFocus();
        QCOMPARE(keys.press(Qt::Key_Right), QStringLiteral("Settings"));
        QCOMPARE(keys.press(Qt::Key_Left), QStringLiteral("Select"));
        QCOMPARE(keys.press(Qt::Key_Left), QStringLiteral("search"));
        keys.wall.button("Select")->forceActiveFocus();
        QCOMPARE(keys.press(Qt::Key_Down), QStringLiteral("All Apps"));
        keys.wall.button("Close")->forceActiveFocus();
        QCOMPARE(keys.press(Qt::Key_Down), QStringLiteral("search"));
    }
};

QTEST_MAIN(WallKeysTest)
#include "WallKeysTest.moc"
