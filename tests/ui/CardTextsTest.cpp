#include "ui/WallFixture.h"

using namespace zelmo;
using namespace zelmo::test;

namespace {

PreferenceValues layout(const QString& name, double nameSize, double categorySize) {
    return {{QStringLiteral("launcherInterfaceStyle"), name},
            {QStringLiteral("appNameFontSize"), nameSize},
            {QStringLiteral("appCategoryFontSize"), categorySize}};
}

// From top to bottom, as far as they are in sight.
QList<QQuickItem*> lines(QQuickItem* card) {
    QList<QQuickItem*> texts;
    collect(card, "QQuickText", texts);
    return texts;
}

} // namespace

class CardTextsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void smallTextsAreAsSmallAsTheirLayoutAllows_data() {
        QTest::addColumn<QString>("style");
        QTest::addColumn<double>("nameSize");
        QTest::addColumn<double>("categorySize");
        QTest::addColumn<int>("nameShown");
        QTest::addColumn<int>("categoryShown"); // 0: it is not
        const auto row = [](const char* title, const char* style, double name, double category, int nameShown,
                            int categoryShown) {
            QTest::newRow(title) << QString::fromLatin1(style) << name << category << nameShown << categoryShown;
        };
        row("grid, small", "grid", 6, 5, 6, 5);
        row("grid, large", "grid", 24, 19, 24, 19);
        row("list, small", "list", 6, 5, 6, 5);
        row("minimal, below the floor", "minimal", 11, 5, 10, 0);
        row("minimal, at the floor", "minimal", 13, 5, 10, 0);
        row("minimal, above the floor", "minimal", 14, 5, 11, 0);
        row("tile, below the floors", "tiles", 12, 9, 13, 9);
        row("tile, at the floors", "tiles", 13, 10, 13, 9);
        row("tile, above the floors", "tiles", 14, 11, 14, 10);
    }
    void smallTextsAreAsSmallAsTheirLayoutAllows() {
        QFETCH(QString, style);
        QFETCH(double, nameSize);
        QFETCH(double, categorySize);
        QFETCH(int, categoryShown);
        WallFixture fixture(2, layout(style, nameSize, categorySize));
        QVERIFY(fixture.waitForCards(2));
        const QList<QQuickItem*> texts = lines(fixture.card(1));
        QCOMPARE(texts.size(), categoryShown > 0 ? 2 : 1);
        QTEST(fontOf(texts[0]).pixelSize(), "nameShown");
        if (categoryShown > 0)
            QCOMPARE(fontOf(texts[1]).pixelSize(), categoryShown);
    }

    void mostUsedHasAThirdLine_data() {
        QTest::addColumn<double>("categorySize");
        QTest::addColumn<int>("usageSize");
        QTest::newRow("below the floor") << 8.0 << 9;
        QTest::newRow("at the floor") << 10.0 << 9;
        QTest::newRow("above the floor") << 11.0 << 10;
    }
    void mostUsedHasAThirdLine() {
        QFETCH(double, categorySize);
        for (const char* style : {"grid", "list"}) {
            WallFixture fixture(2, layout(QString::fromLatin1(style), 15, categorySize));
            QVERIFY(fixture.waitForCards(2));
            LauncherStore& store = *fixture.store.store;
            store.showOverlay();
            store.launch(store.apps()[1]);
            store.showOverlay();
            // Only there.
            QCOMPARE(lines(fixture.card(1)).size(), 2);
            store.setShowsMostUsed(true);
            QVERIFY(fixture.waitForCards(1));
            fixture.settle();
            QQuickItem* card = fixture.card(1);
            const QList<QQuickItem*> texts = lines(card);
            QCOMPARE(texts.size(), 3);
            const QQuickItem* usage = texts[2];
            QCOMPARE(usage->property("text").toString(), QStringLiteral("1 launch"));
            QTEST(fontOf(usage).pixelSize(), "usageSize");
            QCOMPARE(fontOf(usage).weight(), QFont::DemiBold);
            QCOMPARE(fontOf(usage).capitalization(), QFont::MixedCase);
            QCOMPARE(opacityOf(usage), 0.48);
            QCOMPARE(said(usage->property("color").value<QColor>()), said(QColor(255, 250, 235)));
            QCOMPARE(fixture.place(usage).top(), fixture.place(texts[1]).bottom() + 5);
            QVERIFY(fixture.place(usage).bottom() <= fixture.place(card).bottom() - 12);
            store.setShowsMostUsed(false);
            QVERIFY(fixture.waitForCards(2));
            QCOMPARE(lines(fixture.card(1)).size(), 2);
        }
    }

    void smallLayoutsHaveNoRoomForTheThirdLine_data() {
        QTest::addColumn<int>("count");
        QTest::newRow("minimal") << 1;
        QTest::newRow("tiles") << 2;
    }
    void smallLayoutsHaveNoRoomForTheThirdLine() {
        WallFixture fixture(2, layout(QString::fromLatin1(QTest::currentDataTag()), 15, 11));
        QVERIFY(fixture.waitForCards(2));
        LauncherStore& store = *fixture.store.store;
        store.showOverlay();
        store.launch(store.apps()[1]);
        store.setShowsMostUsed(true);
        QVERIFY(fixture.waitForCards(1));
        QTEST(int(lines(fixture.card(1)).size()), "count");
    }

    void largeTextsStayWithinTheirCards_data() {
        QTest::addColumn<double>("size");
        QTest::newRow("grid") << 32.0;
        QTest::newRow("list") << 32.0;
        QTest::newRow("minimal") << 20.0;
        QTest::newRow("tiles") << 20.0;
    }
    void largeTextsStayWithinTheirCards() {
        QFETCH(double, size);
        WallFixture fixture(4, layout(QString::fromLatin1(QTest::currentDataTag()), size, size));
        QVERIFY(QTest::qWaitFor([&] { return fixture.card(3); }));
        fixture.settle();
        const QRectF place = fixture.place(fixture.card(3));
        for (const QQuickItem* text : lines(fixture.card(3)))
            QVERIFY(place.contains(fixture.place(text)));
        QVERIFY(place.contains(fixture.place(WallFixture::part(fixture.card(3), "zelmo::AppIconItem"))));
        QVERIFY(!place.intersects(fixture.place(fixture.card(2)).adjusted(1, 1, -1, -1)));
    }
};

QTEST_MAIN(CardTextsTest)
#include "CardTextsTest.moc"
