#include "ui/WallFixture.h"

#include <QEasingCurve>

using namespace zelmo;
using namespace zelmo::test;

namespace {

PreferenceValues layout(const QString& name, const PreferenceValues& more = {}) {
    PreferenceValues values = more;
    values.insert(QStringLiteral("launcherInterfaceStyle"), name);
    return values;
}

PreferenceValues layout(const char* name, const PreferenceValues& more = {}) {
    return layout(QString::fromLatin1(name), more);
}

// Behind everything else on a card.
QQuickItem* plateOf(QQuickItem* card) {
    for (QQuickItem* plate : platesIn(card)) {
        if (plate->z() == -1)
            return plate;
    }
    return nullptr;
}

bool isDrawn(const QQuickItem* plate) {
    for (const char* property : {"colors", "strokeColors"}) {
        for (const QColor& color : plate->property(property).value<QList<QColor>>()) {
            if (color.alpha() > 0)
                return true;
        }
    }
    return false;
}

QString badgeSymbol(QQuickItem* badge) {
    const QQuickItem* symbol = WallFixture::part(badge, "zelmo::SymbolItem");
    return symbol ? symbol->property("name").toString() + u' ' + letters(symbol) + u' ' +
                        said(symbol->property("color").value<QColor>())
                  : QString();
}

// How long, and in which way, the item's properties go from one value to another.
QList<QPair<int, int>> animations(const QQuickItem* item) {
    QList<QPair<int, int>> list;
    for (const QObject* child : item->children()) {
        if (!child->inherits("QQuickBehavior"))
            continue;
        // There is none before the first change.
        const auto* animation = child->property("animation").value<QObject*>();
        if (animation)
            list.append({animation->property("duration").toInt(),
                         int(animation->property("easing").value<QEasingCurve>().type())});
    }
    return list;
}

} // namespace

class CardSelectionTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void plainPlates_data() {
        QTest::addColumn<QString>("style");
        QTest::addColumn<bool>("showsPlates");
        QTest::addColumn<QString>("fill"); // empty: there is none
        QTest::addColumn<double>("radius");
        const QString dark = said(blackAt(0.12));
        QTest::newRow("grid without") << QStringLiteral("grid") << false << QString() << 0.0;
        QTest::newRow("grid with") << QStringLiteral("grid") << true << dark << 20.0;
        QTest::newRow("minimal without") << QStringLiteral("minimal") << false << QString() << 0.0;
        QTest::newRow("minimal with") << QStringLiteral("minimal") << true << dark << 20.0;
        QTest::newRow("list without") << QStringLiteral("list") << false << said(whiteAt(0.08)) << 18.0;
        QTest::newRow("list with") << QStringLiteral("list") << true << said(whiteAt(0.08)) << 18.0;
    }
    void plainPlates() {
        QFETCH(QString, style);
        QFETCH(bool, showsPlates);
        QFETCH(double, radius);
        WallFixture fixture(2, layout(style, {{QStringLiteral("showAppTileBackground"), showsPlates}}));
        QVERIFY(fixture.waitForCards(2));
        QQuickItem* plate = plateOf(fixture.card(1));
        QCOMPARE(fixture.place(plate), fixture.place(fixture.card(1)));
        QCOMPARE(isDrawn(plate), radius > 0);
        if (radius > 0) {
            QTEST(zelmo::test::fill(plate), "fill");
            QCOMPARE(number(plate, "radius"), radius);
            QCOMPARE(number(plate, "strokeWidth"), 1.0);
        }
        // The setting shows at once.
        fixture.store.preferences->setValue<PreferenceKey::showAppTileBackground>(!showsPlates);
        QCOMPARE(isDrawn(plate), style == QLatin1String("list") || !showsPlates);
    }

    void tilesHaveFaintSeams() {
        for (const bool showsPlates : {false, true}) {
            WallFixture fixture(2, layout("tiles", {{QStringLiteral("showAppTileBackground"), showsPlates}}));
            QVERIFY(fixture.waitForCards(2));
            QQuickItem* plate = plateOf(fixture.card(1));
            QCOMPARE(plate->property("colors").value<QList<QColor>>().value(0, Qt::transparent).alpha(), 0);
            QCOMPARE(outline(plate), said(blackAt(0.08)));
            QCOMPARE(number(plate, "strokeWidth"), 0.5);
            QCOMPARE(number(plate, "radius"), 0.0);
            // Darker at the edge than beside it.
            const QImage wall = fixture.settle();
            const QRect place = fixture.place(fixture.card(1)).toRect();
            QVERIFY(qGray(wall.pixel(place.left(), place.center().y())) <
                    qGray(wall.pixel(place.left() + 2, place.center().y())));
        }
    }

    void aSelectedCardIsSmallerOnAColoredPlate_data() {
        QTest::addColumn<double>("radius");
        QTest::newRow("grid") << 22.0;
        QTest::newRow("list") << 18.0;
        QTest::newRow("minimal") << 22.0;
        QTest::newRow("tiles") << 22.0;
    }
    void aSelectedCardIsSmallerOnAColoredPlate() {
        WallFixture fixture(3, layout(QTest::currentDataTag()));
        QVERIFY(fixture.waitForCards(3));
        LauncherStore& store = *fixture.store.store;
        QQuickItem* card = fixture.card(1);
        const QRectF whole = fixture.place(card);
        const bool hadPlate = isDrawn(plateOf(card));
        const QString plain = fill(plateOf(card));
        store.setIsEditingApps(true);
        store.toggleSelection(store.apps()[1]);
        QTRY_COMPARE(card->scale(), 0.97);
        const QRectF small = fixture.place(card);
        QVERIFY(std::abs(small.width() - 0.97 * whole.width()) < 0.001);
        QVERIFY(std::abs(small.height() - 0.97 * whole.height()) < 0.001);
        QVERIFY(QLineF(small.center(), whole.center()).length() < 0.001);
        QQuickItem* plate = plateOf(card);
        QCOMPARE(fill(plate), said({rgb(0.42, 0.85, 0.74, 0.28), rgb(0.52, 0.62, 1, 0.24), rgb(1, 0.61, 0.44, 0.2)}));
        QCOMPARE(plate->property("direction").toInt(), 0);
        QCOMPARE(number(plate, "strokeWidth"), 1.0);
        const QColor edge = plate->property("strokeColors").value<QList<QColor>>().value(0);
        QCOMPARE(edge.rgb(), QColor(Qt::white).rgb());
        QVERIFY(edge.alpha() > 0);
        QTEST(number(plate, "radius"), "radius");
        // The others stay as they are.
        QCOMPARE(fixture.card(0)->scale(), 1.0);
        QCOMPARE(fill(plateOf(fixture.card(0))), plain);

        store.finishEditing();
        QTRY_COMPARE(card->scale(), 1.0);
        QCOMPARE(fill(plateOf(card)), plain);
        QCOMPARE(isDrawn(plateOf(card)), hadPlate);
    }

    void theBadgeIsACircleInTheCorner_data() {
        QTest::addColumn<QPointF>("place");
        QTest::newRow("grid") << QPointF(10, 8);
        QTest::newRow("list") << QPointF(8, 6);
        QTest::newRow("minimal") << QPointF(10, 8);
        QTest::newRow("tiles") << QPointF(10, 8);
    }
    void theBadgeIsACircleInTheCorner() {
        QFETCH(QPointF, place);
        WallFixture fixture(2, layout(QTest::currentDataTag()));
        QVERIFY(fixture.waitForCards(2));
        LauncherStore& store = *fixture.store.store;
        QQuickItem* card = fixture.card(1);
        QVERIFY(!badgeOf(card));
        store.setIsEditingApps(true);
        QQuickItem* badge = badgeOf(card);
        QTRY_COMPARE(badge->scale(), 1.0);
        QTRY_COMPARE(opacityOf(badge), 1.0);
        QCOMPARE(fixture.place(badge), QRectF(fixture.place(card).topLeft() + place, QSizeF(24, 24)));
        QCOMPARE(number(badge, "radius"), 12.0);
        QCOMPARE(shadow(badge), QStringLiteral("0.26 6 3"));
        QCOMPARE(outline(badge), said(whiteAt(0.62)));
        QCOMPARE(number(badge, "strokeWidth"), 1.0);
        QCOMPARE(fill(badge), said(blackAt(0.7)));
        QCOMPARE(badgeSymbol(badge), QStringLiteral("circle 12 900 ") + said(whiteAt(1)));

        store.toggleSelection(store.apps()[1]);
        QCOMPARE(fill(badge), said({rgb(0.33, 0.83, 0.62), rgb(0.31, 0.56, 1)}));
        QCOMPARE(badge->property("direction").toInt(), 0);
        QCOMPARE(badgeSymbol(badge), QStringLiteral("checkmark 10 900 ") + said(whiteAt(1)));
        QCOMPARE(outline(badge), said(whiteAt(0.62)));
        QCOMPARE(number(badge, "strokeWidth"), 1.0);
    }

    void theBadgeGrowsAndFadesInAndOut() {
        WallFixture fixture(2);
        QVERIFY(fixture.waitForCards(2));
        LauncherStore& store = *fixture.store.store;
        store.setIsEditingApps(true);
        const QPointer<QQuickItem> badge = badgeOf(fixture.card(1));
        QCOMPARE(badge->scale(), 0.00001);
        QCOMPARE(badge->opacity(), 0.0);
        QCOMPARE(badge->transformOrigin(), QQuickItem::Center);
        const auto isBetween = [&badge] {
            return badge && badge->isVisible() && badge->scale() > 0.001 && badge->scale() < 0.999 &&
                   badge->opacity() > 0.001 && badge->opacity() < 0.999;
        };
        bool wasBetween = false;
        QTRY_VERIFY((wasBetween = wasBetween || isBetween(), badge->opacity() == 1));
        QVERIFY(wasBetween);
        QTRY_COMPARE(badge->scale(), 1.0);
        QVERIFY(badge->isVisible());

        store.setIsEditingApps(false);
        wasBetween = false;
        QTRY_VERIFY((wasBetween = wasBetween || isBetween(), !badge));
        QVERIFY(wasBetween);
        QVERIFY(!badgeOf(fixture.card(1)));
        // And once more.
        store.setIsEditingApps(true);
        QTRY_COMPARE(opacityOf(badgeOf(fixture.card(1))), 1.0);
    }

    void aBadgeThatIsWantedAgainWhileItFadesStays() {
        WallFixture fixture(2);
        QVERIFY(fixture.waitForCards(2));
        LauncherStore& store = *fixture.store.store;
        store.setIsEditingApps(true);
        const QPointer<QQuickItem> badge = badgeOf(fixture.card(1));
        QTRY_COMPARE(badge->opacity(), 1.0);
        store.setIsEditingApps(false);
        QTRY_VERIFY(badge->opacity() < 1);
        store.setIsEditingApps(true);
        QTRY_COMPARE(badge->opacity(), 1.0);
        QTRY_COMPARE(badge->scale(), 1.0);
    }

    void badgesOfNewCardsAreJustThere() {
        WallFixture fixture(200, {}, {1280, 700});
        QTRY_VERIFY(!fixture.items("zelmo::AppIconItem").isEmpty());
        LauncherStore& store = *fixture.store.store;
        store.setIsEditingApps(true);
        QTRY_COMPARE(opacityOf(badgeOf(fixture.card(0))), 1.0);
        const qsizetype before = fixture.items("zelmo::AppIconItem").size();
        fixture.window.resize(1920, 1080);
        QTRY_VERIFY(fixture.items("zelmo::AppIconItem").size() > before);
        const QQuickItem* badge = badgeOf(fixture.card(static_cast<int>(before)));
        QVERIFY(badge);
        QCOMPARE(badge->opacity(), 1.0);
        QCOMPARE(badge->scale(), 1.0);
    }

    void changesEaseOutIn120Milliseconds() {
        WallFixture fixture(2);
        QVERIFY(fixture.waitForCards(2));
        // A card does not change its size at once.
        LauncherStore& store = *fixture.store.store;
        store.setIsEditingApps(true);
        store.toggleSelection(store.apps()[1]);
        bool wasBetween = false;
        QTRY_VERIFY((wasBetween = wasBetween || (fixture.card(1)->scale() < 1 && fixture.card(1)->scale() > 0.97),
                     fixture.card(1)->scale() == 0.97));
        QVERIFY(wasBetween);
        const QPair<int, int> easeOut{120, int(QEasingCurve::OutQuad)};
        QCOMPARE(animations(fixture.card(1)), (QList<QPair<int, int>>{easeOut}));
        QCOMPARE(animations(badgeOf(fixture.card(1))), (QList<QPair<int, int>>{easeOut, easeOut}));
    }

    void aClickOnTheBadgeTogglesOnce() {
        WallFixture fixture(2);
        QVERIFY(fixture.waitForCards(2));
        LauncherStore& store = *fixture.store.store;
        store.setIsEditingApps(true);
        QTRY_COMPARE(badgeOf(fixture.card(1))->scale(), 1.0);
        fixture.click(badgeOf(fixture.card(1)));
        QCOMPARE(store.selectedAppIDs(), QSet<FileUrl>{store.apps()[1].id});
        fixture.click(badgeOf(fixture.card(1)));
        QVERIFY(store.selectedAppIDs().isEmpty());
        QVERIFY(store.isEditingApps());
        QVERIFY(fixture.store.log.isEmpty());
    }
};

QTEST_MAIN(CardSelectionTest)
#include "CardSelectionTest.moc"
