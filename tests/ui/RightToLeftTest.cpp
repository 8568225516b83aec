#include "ui/KeyFixture.h"
#include "ui/PlateItem.h"

using namespace zelmo;
using namespace zelmo::test;

class RightToLeftTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { QGuiApplication::setLayoutDirection(Qt::RightToLeft); }

    void everythingIsMirrored() {
        Keys keys(8);
        QVERIFY(keys.isReady());
        WallFixture& wall = keys.wall;
        const auto left = [&](QQuickItem* item) { return wall.place(item).left(); };
        QVERIFY(left(wall.item("zelmo::ZelmoGlyphItem")) > left(wall.button("Close")));
        QVERIFY(left(wall.button("Select")) > left(wall.button("Settings")));
        QCOMPARE(wall.place(wall.chip("Most Used")).right(), wall.place(wall.panel()).right() - 24);
        QVERIFY(left(wall.chip("Most Used")) > left(wall.chip("All Apps")));
        QCOMPARE(wall.place(wall.card(0)).right(), (1920 + 1034) / 2.0);
        QVERIFY(left(wall.card(0)) > left(wall.card(1)));
        QCOMPARE(left(wall.card(6)), left(wall.card(0)));
        // The badge is in the corner at the right.
        wall.store.store->setIsEditingApps(true);
        QQuickItem* badge = badgeOf(wall.card(0));
        QVERIFY(badge);
        QTRY_COMPARE(badge->scale(), 1.0);
        QCOMPARE(wall.place(badge).right(), wall.place(wall.card(0)).right() - 10);
    }

    void chipsWithoutRoomAreThereAndWithinReach() {
        WallFixture wall(0, {}, {800, 600});
        QVERIFY(wall.chip("Other"));
        const QRectF panel = wall.place(wall.panel());
        QCOMPARE(wall.place(wall.chip("Most Used")).right(), panel.right() - 24);
        QVERIFY(wall.place(wall.chip("Other")).right() < panel.left());
        const QPointF place = wall.place(wall.chip("All Apps")).center();
        for (int turn = 0; turn < 30; ++turn) {
            QWheelEvent wheel(place, wall.window.mapToGlobal(place), {}, QPoint(0, -120), {}, {}, {}, false);
            QCoreApplication::sendEvent(&wall.window, &wheel);
        }
        QTRY_VERIFY(wall.place(wall.chip("Other")).left() >= panel.left() + 24);
    }

    void gradientsBeginAtTheRight() {
        WallFixture wall(2, {{QStringLiteral("launcherInterfaceStyle"), QStringLiteral("tiles")}});
        QVERIFY(wall.waitForCards(2));
        int gradients = 0;
        for (QQuickItem* plate : wall.items("zelmo::PlateItem")) {
            const int direction = plate->property("direction").toInt();
            if (plate->property("colors").value<QList<QColor>>().size() < 2 || direction == PlateItem::Down)
                continue;
            ++gradients;
            QVERIFY(plate->property("mirrored").toBool());
        }
        // Of the search row two, of its buttons two, of the chosen chip and of each tile.
        QVERIFY2(gradients >= 6, qPrintable(QString::number(gradients)));
    }

    void arrowsGoTheOtherWay() {
        Keys keys(8);
        QVERIFY(keys.isReady());
        keys.press(Qt::Key_Down);
        QCOMPARE(focused(keys.wall), QStringLiteral("All Apps"));
        QCOMPARE(keys.press(Qt::Key_Left), QStringLiteral("Productivity & Finance"));
        QCOMPARE(keys.press(Qt::Key_Right), QStringLiteral("All Apps"));
        keys.press(Qt::Key_Down);
        QCOMPARE(keys.press(Qt::Key_Left), app(1));
        QCOMPARE(keys.press(Qt::Key_Right), app(0));
        keys.wall.button("Select")->forceActiveFocus();
        QCOMPARE(keys.press(Qt::Key_Left), QStringLiteral("Settings"));
        QCOMPARE(keys.press(Qt::Key_Right), QStringLiteral("Select"));
    }

    void textsStandAtTheRight_data() {
        QTest::addColumn<QString>("style");
        for (const char* style : {"list", "tiles"})
            QTest::newRow(style) << QString::fromLatin1(style);
    }
    void textsStandAtTheRight() {
        QFETCH(QString, style);
        WallFixture wall(2, {{QStringLiteral("launcherInterfaceStyle"), style}});
        QVERIFY(wall.waitForCards(2));
        const auto alignment = [](const QQuickItem* item) {
            return item->property("effectiveHorizontalAlignment").toInt();
        };
        for (const char* text : {"App 00001", "Builder", "Zelmo", "Colorful launchpad for your Mac", "Search apps"})
            QCOMPARE(alignment(wall.text(text)), int(Qt::AlignRight));
        QCOMPARE(alignment(wall.searchField()), int(Qt::AlignRight));
        QQuickItem* card = wall.card(1);
        const double padding = style == QLatin1String("list") ? 16 : 12;
        QCOMPARE(wall.place(WallFixture::part(card, "zelmo::AppIconItem")).right(), wall.place(card).right() - padding);
    }

    void theBarScrollsTheOtherWay() {
        WallFixture wall(0, {}, {800, 600});
        const QRectF panel = wall.place(wall.panel());
        const QPointF place = wall.place(wall.chip("All Apps")).center();
        for (int turn = 0; turn < 30; ++turn) {
            QWheelEvent wheel(place, wall.window.mapToGlobal(place), {}, QPoint(0, -120), {}, {}, {}, false);
            QCoreApplication::sendEvent(&wall.window, &wheel);
        }
        QVERIFY(wall.chip("Other"));
        QTRY_COMPARE(wall.place(wall.chip("Other")).left(), panel.left() + 24);
        QVERIFY(wall.place(wall.chip("Creativity")).left() > wall.place(wall.chip("Other")).right());
    }
};

QTEST_MAIN(RightToLeftTest)
#include "RightToLeftTest.moc"
