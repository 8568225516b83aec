#include "ui/WallFixture.h"

using namespace zelmo;
using namespace zelmo::test;

class EditButtonsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theyAreSymbolsOnColoredCircles_data() {
        QTest::addColumn<bool>("isEditing");
        QTest::addColumn<QString>("symbol");
        QTest::addColumn<QString>("letters");
        QTest::addColumn<QList<QColor>>("colors");
        QTest::addColumn<QString>("helpText");
        const QList<QColor> select{rgb(0.39, 0.83, 0.63), rgb(0.3, 0.57, 1)};
        QTest::newRow("Uninstall") << true << QStringLiteral("trash.fill") << QStringLiteral("15 700")
                                   << QList<QColor>{rgb(1, 0.34, 0.38)} << QStringLiteral("Select apps to uninstall");
        QTest::newRow("Done") << true << QStringLiteral("checkmark") << QStringLiteral("15 900") << select
                              << QStringLiteral("Finish selecting");
        QTest::newRow("Select") << false << QStringLiteral("checkmark.circle") << QStringLiteral("15 900") << select
                                << QStringLiteral("Select multiple apps");
        QTest::newRow("Settings") << false << QStringLiteral("gearshape.fill") << QStringLiteral("15 900")
                                  << QList<QColor>{rgb(0.92, 0.48, 1), rgb(1, 0.67, 0.34)}
                                  << QStringLiteral("Settings");
    }
    void theyAreSymbolsOnColoredCircles() {
        QFETCH(bool, isEditing);
        QFETCH(QString, letters);
        QFETCH(QList<QColor>, colors);
        // Their colour is not the text's.
        WallFixture fixture(1, {{QStringLiteral("launcherTextRed"), 0.1}});
        const char* title = QTest::currentDataTag();
        fixture.store.store->setIsEditingApps(!isEditing);
        QVERIFY(!fixture.button(title));
        fixture.store.store->setIsEditingApps(isEditing);
        QQuickItem* button = fixture.button(title);
        QVERIFY(button);
        QCOMPARE(QSizeF(button->width(), button->height()), QSizeF(44, 44));
        QCOMPARE(number(button, "radius"), 22.0);
        QCOMPARE(fill(button), said(colors));
        QCOMPARE(button->property("direction").toInt(), 0);
        QTEST(button->property("helpText").toString(), "helpText");
        const QQuickItem* symbol = WallFixture::part(button, "zelmo::SymbolItem");
        QVERIFY(symbol);
        QTEST(symbol->property("name").toString(), "symbol");
        QCOMPARE(zelmo::test::letters(symbol), letters);
        QCOMPARE(said(symbol->property("color").value<QColor>()), said(whiteAt(1)));
        QCOMPARE(symbol->opacity(), 1.0);
        QVERIFY(isCentred(fixture.place(symbol), fixture.place(button)));
        // They say what they are only to who can't see them.
        QList<QQuickItem*> texts;
        collect(button, "QQuickText", texts);
        QVERIFY(texts.isEmpty());
    }

    void theCirclesAreColoredFromCornerToCorner() {
        WallFixture fixture(1);
        const QImage wall = fixture.settle();
        const QRect place = fixture.place(fixture.button("Settings")).toRect();
        const QColor start = rgb(0.92, 0.48, 1);
        QColor end = rgb(1, 0.67, 0.34);
        for (const int step : {8, 10, 36}) {
            end.setAlphaF(static_cast<float>((step + 0.5) / 44));
            QVERIFY(isNear(wall.pixelColor(place.topLeft() + QPoint(step, step)), over(start, end), 3));
        }
    }

    void leadingButtonsComeFirst() {
        WallFixture fixture(1);
        QCOMPARE(fixture.place(fixture.button("Settings")).left() - fixture.place(fixture.button("Select")).right(),
                 10.0);
        fixture.store.store->setIsEditingApps(true);
        fixture.settle();
        QCOMPARE(fixture.place(fixture.button("Done")).left() - fixture.place(fixture.button("Uninstall")).right(),
                 10.0);
        QCOMPARE(fixture.place(fixture.button("Done")).right(), fixture.place(fixture.searchRow()).right() - 14);
    }

    void uninstallIsOutOfUseUntilSomethingIsSelected() {
        WallFixture fixture(3);
        QVERIFY(fixture.waitForCards(3));
        LauncherStore& store = *fixture.store.store;
        store.setIsEditingApps(true);
        QQuickItem* uninstall = fixture.button("Uninstall");
        QVERIFY(!uninstall->isEnabled());
        QCOMPARE(opacityOf(uninstall), 0.42);
        fixture.press("Uninstall");
        QVERIFY(fixture.store.alerts.shown.isEmpty());
        QVERIFY(store.isEditingApps());

        fixture.store.alerts.answer = 1;
        store.toggleSelection(store.apps()[1]);
        QVERIFY(uninstall->isEnabled());
        QCOMPARE(opacityOf(uninstall), 1.0);
        QCOMPARE(uninstall->property("helpText").toString(), QStringLiteral("Move selected apps to Trash"));
        fixture.press("Uninstall");
        QCOMPARE(fixture.store.alerts.shown.size(), 1);

        store.toggleSelection(store.apps()[1]);
        QVERIFY(!store.selectionCount());
        QVERIFY(!uninstall->isEnabled());
        QCOMPARE(opacityOf(uninstall), 0.42);
        QCOMPARE(uninstall->property("helpText").toString(), QStringLiteral("Select apps to uninstall"));
    }

    void doneLeavesEditModeWithNothingSelected() {
        WallFixture fixture(3);
        QVERIFY(fixture.waitForCards(3));
        LauncherStore& store = *fixture.store.store;
        fixture.press("Select");
        QVERIFY(store.isEditingApps());
        store.toggleSelection(store.apps()[1]);
        fixture.press("Done");
        QVERIFY(!store.isEditingApps());
        QVERIFY(store.selectedAppIDs().isEmpty());
        QVERIFY(fixture.button("Select"));
        QVERIFY(fixture.store.log.isEmpty());
    }

    void settingsOpensTheSettings() {
        WallFixture fixture(1);
        fixture.store.store->showOverlay();
        fixture.press("Settings");
        QTRY_COMPARE(fixture.store.log.last(), QStringLiteral("settings"));
        QVERIFY(!fixture.store.store->overlayIsVisible());
    }

    void whatIsOutOfUseStillSaysWhatItIsFor() {
        WallFixture fixture(1);
        fixture.store.store->setIsEditingApps(true);
        fixture.settle();
        const QPoint place = fixture.place(fixture.button("Uninstall")).center().toPoint();
        QTest::mouseMove(&fixture.window, place);
        QTest::mouseMove(&fixture.window, place + QPoint(2, 2));
        QTRY_VERIFY(fixture.text("Select apps to uninstall"));
    }
};

QTEST_MAIN(EditButtonsTest)
#include "EditButtonsTest.moc"
