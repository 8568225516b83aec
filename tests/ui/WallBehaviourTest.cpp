#include "ui/WallFixture.h"

using namespace zelmo;
using namespace zelmo::test;

namespace {

constexpr auto settingsOfStyle = {"launcherBackgroundStyle", "launcherFontStyle", "launcherInterfaceStyle"};

// Names of symbols in sight, but for those of the header.
QStringList symbolsBelow(WallFixture& fixture) {
    QStringList list;
    for (QQuickItem* symbol : fixture.items("zelmo::SymbolItem")) {
        if (fixture.place(symbol).top() > fixture.place(fixture.panel()).bottom())
            list.append(symbol->property("name").toString());
    }
    return list;
}

QStringList textsBelow(WallFixture& fixture) {
    QStringList list;
    for (QQuickItem* text : fixture.items("QQuickText")) {
        if (fixture.place(text).top() > fixture.place(fixture.panel()).bottom())
            list.append(text->property("text").toString());
    }
    return list;
}

} // namespace

class WallBehaviourTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void emptySpaceClosesTheWallUnlessItIsBeingEdited_data() {
        QTest::addColumn<QPoint>("place");
        QTest::newRow("beside the panel") << QPoint(100, 100);
        QTest::newRow("above the panel") << QPoint(900, 10);
        QTest::newRow("below the panel") << QPoint(900, 262);
        QTest::newRow("beside the cards") << QPoint(300, 500);
        QTest::newRow("between two cards") << QPoint(608, 320);
        QTest::newRow("below the cards") << QPoint(1000, 900);
        QTest::newRow("below the area") << QPoint(1000, 1070);
    }
    void emptySpaceClosesTheWallUnlessItIsBeingEdited() {
        QFETCH(QPoint, place);
        WallFixture fixture(6);
        QVERIFY(fixture.waitForCards(6));
        LauncherStore& store = *fixture.store.store;
        store.showOverlay();
        store.setIsEditingApps(true);
        QTest::mouseClick(&fixture.window, Qt::LeftButton, {}, place);
        QVERIFY(store.isEditingApps());
        QVERIFY(store.overlayIsVisible());
        store.setIsEditingApps(false);
        QTest::mouseClick(&fixture.window, Qt::LeftButton, {}, place);
        QVERIFY(!store.overlayIsVisible());
        QCOMPARE(fixture.store.log, (QStringList{QStringLiteral("show"), QStringLiteral("hide")}));
    }

    void thePanelIsNoEmptySpace() {
        WallFixture fixture(2);
        fixture.store.store->showOverlay();
        const QRectF panel = fixture.place(fixture.panel());
        fixture.click(panel.topLeft() + QPointF(700, 30));
        fixture.click(panel.bottomRight() - QPointF(700, 8));
        fixture.click(fixture.searchField());
        QVERIFY(fixture.store.store->overlayIsVisible());
    }

    void theCloseButtonClosesAlsoWhileEditing() {
        WallFixture fixture(3);
        QVERIFY(fixture.waitForCards(3));
        LauncherStore& store = *fixture.store.store;
        store.showOverlay();
        store.setIsEditingApps(true);
        store.toggleSelection(store.apps()[1]);
        fixture.press("Close");
        QVERIFY(!store.overlayIsVisible());
        QVERIFY(!store.isEditingApps());
        QVERIFY(store.selectedAppIDs().isEmpty());
        store.showOverlay();
        fixture.press("Close");
        QVERIFY(!store.overlayIsVisible());
    }

    void theWholeRoundedRectangleOfACardCounts_data() {
        QTest::addColumn<double>("radius");
        QTest::newRow("grid") << 22.0;
        QTest::newRow("list") << 18.0;
        QTest::newRow("minimal") << 22.0;
        QTest::newRow("tiles") << 22.0;
    }
    void theWholeRoundedRectangleOfACardCounts() {
        QFETCH(double, radius);
        WallFixture fixture(1,
                            {{QStringLiteral("launcherInterfaceStyle"), QString::fromLatin1(QTest::currentDataTag())}});
        QVERIFY(fixture.waitForCards(1));
        LauncherStore& store = *fixture.store.store;
        const QRectF card = fixture.place(fixture.card(0));
        // On the diagonal of a corner its curve is this far from both sides, about as a circle's is.
        const double inset = radius * (1 - std::sqrt(0.5));
        const QPointF corner = card.bottomRight();
        store.showOverlay();
        fixture.store.log.clear();
        for (const QPointF& inside :
             {corner - QPointF(inset + 2, inset + 2), card.topLeft() + QPointF(inset + 2, inset + 2),
              QPointF(card.center().x(), card.bottom() - 2)}) {
            fixture.click(inside);
            QCOMPARE(std::exchange(fixture.store.log, {}).value(0), QStringLiteral("open /Applications/App 00000.app"));
            store.showOverlay();
            fixture.store.log.clear();
        }
        // What is outside of it is empty space.
        for (const QPointF& outside : {corner - QPointF(2, 2), card.topLeft() + QPointF(2, 2)}) {
            fixture.click(outside);
            QCOMPARE(std::exchange(fixture.store.log, {}), QStringList{QStringLiteral("hide")});
            store.showOverlay();
            fixture.store.log.clear();
        }
    }

    void aClickTogglesWhileEditingAndLaunchesOtherwise_data() {
        QTest::addColumn<QString>("style");
        for (const char* style : {"grid", "list", "minimal", "tiles"})
            QTest::newRow(style) << QString::fromLatin1(style);
    }
    void aClickTogglesWhileEditingAndLaunchesOtherwise() {
        QFETCH(QString, style);
        WallFixture fixture(3, {{QStringLiteral("launcherInterfaceStyle"), style}});
        QVERIFY(fixture.waitForCards(3));
        LauncherStore& store = *fixture.store.store;
        store.showOverlay();
        store.setIsEditingApps(true);
        const QPointF icon = fixture.place(WallFixture::part(fixture.card(1), "zelmo::AppIconItem")).center();
        fixture.click(icon);
        QCOMPARE(store.selectedAppIDs(), QSet<FileUrl>{store.apps()[1].id});
        fixture.click(icon);
        QVERIFY(store.selectedAppIDs().isEmpty());
        QCOMPARE(fixture.store.log, QStringList{QStringLiteral("show")});
        store.finishEditing();
        fixture.click(icon);
        QVERIFY(fixture.store.log.contains(QStringLiteral("open /Applications/App 00001.app")));
        QVERIFY(store.selectedAppIDs().isEmpty());
    }

    void cardsKeepTheOrderOfTheStore() {
        WallFixture fixture(0);
        fixture.store.installed.set({found(QStringLiteral("Zebra")), found(QStringLiteral("apple")),
                                     found(QStringLiteral("Mango"), "public.app-category.games")});
        fixture.store.store->refresh();
        QVERIFY(fixture.waitForCards(3));
        fixture.settle();
        qreal left = 0;
        for (const LaunchableApp& app : fixture.store.store->visibleApps()) {
            QVERIFY(fixture.place(fixture.card(app.name)).left() > left);
            left = fixture.place(fixture.card(app.name)).left();
        }
    }

    void mostUsedSaysThatItIsEmpty() {
        WallFixture fixture(3, {{QStringLiteral("launcherTextRed"), 0.2},
                                {QStringLiteral("launcherTextGreen"), 0.8},
                                {QStringLiteral("launcherTextBlue"), 0.4}});
        QVERIFY(fixture.waitForCards(3));
        fixture.store.store->setShowsMostUsed(true);
        QVERIFY(fixture.waitForCards(0));
        fixture.settle();
        QCOMPARE(symbolsBelow(fixture), QStringList{QStringLiteral("chart.bar")});
        QQuickItem* title = fixture.text("Most Used will fill in as you use your Mac.");
        QQuickItem* text =
            fixture.text("Zelmo ranks apps by active time while it is running, plus apps opened from Zelmo.");
        QVERIFY(title && text);
        QQuickItem* symbol = nullptr;
        for (QQuickItem* sibling : title->parentItem()->childItems()) {
            if (sibling->inherits("zelmo::SymbolItem"))
                symbol = sibling;
        }
        QVERIFY(symbol);
        QCOMPARE(letters(symbol), QStringLiteral("34 600"));
        QCOMPARE(ink(symbol), said(rgb(0.2, 0.8, 0.4, 0.6)));
        QCOMPARE(letters(title), QStringLiteral("18 600"));
        QCOMPARE(ink(title), said(rgb(0.2, 0.8, 0.4, 0.86)));
        QCOMPARE(letters(text), QStringLiteral("13 400"));
        QCOMPARE(ink(text), said(rgb(0.2, 0.8, 0.4, 0.56)));
        const QRectF top = fixture.place(symbol);
        QVERIFY(std::abs(top.center().x() - 960) <= 0.5);
        QCOMPARE(fixture.place(title).top(), top.bottom() + 10);
        QCOMPARE(fixture.place(text).top(), fixture.place(title).bottom() + 10);
        for (const QQuickItem* line : {title, text}) {
            QCOMPARE(fixture.place(line).center().x(), 960.0);
            QCOMPARE(line->property("horizontalAlignment").toInt(), int(Qt::AlignHCenter));
        }
        // With the four above everything in the area.
        const qreal gap = top.top() - fixture.place(fixture.panel()).bottom() - 22;
        QVERIFY2(gap == 96 + 4, qPrintable(QString::number(gap)));

        // It is empty space as well, and the same for a search.
        fixture.store.store->setSearchText(QStringLiteral("App"));
        QCOMPARE(symbolsBelow(fixture).size(), 1);
        fixture.store.store->showOverlay();
        fixture.click(title);
        QVERIFY(!fixture.store.store->overlayIsVisible());
    }

    void whatIsSaidOfMostUsedScrollsWhereThereIsNoRoom() {
        WallFixture fixture(1, {}, {1000, 400});
        fixture.store.store->setShowsMostUsed(true);
        fixture.settle();
        QVERIFY(number(fixture.area(), "contentHeight") > fixture.area()->height());
        fixture.store.store->setShowsMostUsed(false);
        QVERIFY(fixture.waitForCards(1));
    }

    void aSearchWithoutResultShowsNothing() {
        WallFixture fixture(3);
        QVERIFY(fixture.waitForCards(3));
        fixture.store.store->setSearchText(QStringLiteral("nothing is called so"));
        QVERIFY(fixture.waitForCards(0));
        QCOMPARE(textsBelow(fixture), QStringList());
        QCOMPARE(symbolsBelow(fixture), QStringList());
        fixture.store.store->setSearchText({});
        QVERIFY(fixture.waitForCards(3));
        fixture.store.store->setSelectedCategory(AppCategory::social);
        QVERIFY(fixture.waitForCards(0));
        QCOMPARE(textsBelow(fixture), QStringList());
    }

    void unknownStylesAreTheFirstOnes() {
        PreferenceValues values;
        for (const char* key : settingsOfStyle)
            values.insert(QString::fromLatin1(key), QStringLiteral("Grid "));
        WallFixture fixture(2, values);
        WallFixture usual(2);
        QVERIFY(fixture.waitForCards(2) && usual.waitForCards(2));
        QCOMPARE(fixture.place(fixture.card(1)), usual.place(usual.card(1)));
        QCOMPARE(fixture.place(fixture.card(1)).width(), 154.0);
        QCOMPARE(fontOf(fixture.text("App 00001")), fontOf(usual.text("App 00001")));
        fixture.desktop.color = Qt::red;
        fixture.content.prepare(*fixture.window.screen());
        QCOMPARE(fixture.desktop.captures, 1);
    }

    void aNarrowWallKeepsItsCardsInTheMiddle() {
        for (const int width : {1034, 800}) {
            WallFixture fixture(6, {}, {width, 700});
            QVERIFY(fixture.waitForCards(6));
            QCOMPARE(fixture.place(fixture.card(0)).left() + fixture.place(fixture.card(5)).right(), qreal(width));
            for (int i = 1; i < 6; ++i)
                QCOMPARE(fixture.place(fixture.card(i)).left() - fixture.place(fixture.card(i - 1)).left(), 176.0);
        }
    }

    void theWheelScrollsTheCards() {
        WallFixture fixture(200);
        QVERIFY(QTest::qWaitFor([&] { return fixture.card(0); }));
        const QPointF place(960, 700);
        QWheelEvent wheel(place, fixture.window.mapToGlobal(place), {}, QPoint(0, -120), {}, {}, {}, false);
        QCoreApplication::sendEvent(&fixture.window, &wheel);
        QTRY_VERIFY(number(fixture.area(), "contentY") > 20);
    }

    void aFingerScrollsAndATapOfItLaunches() {
        WallFixture fixture(200);
        QVERIFY(QTest::qWaitFor([&] { return fixture.card(0); }));
        const std::unique_ptr<QPointingDevice> screen(QTest::createTouchDevice());
        const QPoint start = fixture.place(fixture.card(14)).center().toPoint();
        QTest::touchEvent(&fixture.window, screen.get()).press(0, start);
        for (int moved = 10; moved <= 300; moved += 10) {
            QTest::qWait(2);
            QTest::touchEvent(&fixture.window, screen.get()).move(0, start - QPoint(0, moved));
        }
        QTRY_VERIFY(number(fixture.area(), "contentY") > 200);
        // At rest before it is lifted: it lets go where it is.
        QTest::qWait(150);
        QTest::touchEvent(&fixture.window, screen.get()).move(0, start - QPoint(0, 300));
        QTest::touchEvent(&fixture.window, screen.get()).release(0, start - QPoint(0, 300));
        QTRY_VERIFY(!fixture.area()->property("moving").toBool());
        QVERIFY(fixture.store.log.isEmpty());

        fixture.store.store->showOverlay();
        fixture.store.log.clear();
        QTest::touchEvent(&fixture.window, screen.get()).press(0, start);
        QTest::touchEvent(&fixture.window, screen.get()).release(0, start);
        QTRY_VERIFY(fixture.store.log.value(0).startsWith(QStringLiteral("open ")));
    }

    void nothingIsWarnedOf() {
        QTest::failOnWarning(QRegularExpression(QStringLiteral(".*")));
        for (const char* style : {"grid", "list", "minimal", "tiles"}) {
            WallFixture fixture(30, {{QStringLiteral("launcherInterfaceStyle"), QString::fromLatin1(style)}});
            QVERIFY(QTest::qWaitFor([&] { return fixture.card(0); }));
            LauncherStore& store = *fixture.store.store;
            store.showOverlay();
            store.setIsEditingApps(true);
            store.toggleSelection(store.apps()[3]);
            fixture.settle();
            store.finishEditing();
            store.setShowsMostUsed(true);
            fixture.settle();
            store.setShowsMostUsed(false);
            fixture.store.preferences->setValue<PreferenceKey::launcherInterfaceStyle>(QStringLiteral("list"));
            fixture.store.preferences->setValue<PreferenceKey::titleFontSize>(80);
            fixture.window.resize(500, 300);
            fixture.settle();
            fixture.window.resize(60, 40);
            fixture.settle();
        }
    }
};

QTEST_MAIN(WallBehaviourTest)
#include "WallBehaviourTest.moc"
