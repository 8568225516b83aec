#include "ui/WallFixture.h"

#include <QElapsedTimer>

using namespace zelmo;
using namespace zelmo::test;

namespace {

// Longer than help takes to show.
constexpr int longRest = 1200;

} // namespace

class HelpAreaTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aPointerThatComesToRestIsTold_data() {
        QTest::addColumn<QString>("helpText");
        QTest::newRow("Select") << QStringLiteral("Select multiple apps");
        QTest::newRow("Most Used") << QStringLiteral("Apps ranked by active time while Zelmo is running");
    }
    void aPointerThatComesToRestIsTold() {
        QFETCH(QString, helpText);
        WallFixture fixture(2);
        QVERIFY(fixture.waitForCards(2));
        QQuickItem* item = fixture.button(QTest::currentDataTag());
        QVERIFY(item);
        const QRectF place = fixture.place(item);
        QTest::mouseMove(&fixture.window, QPoint(3, 600));
        QTest::mouseMove(&fixture.window, place.center().toPoint());
        QElapsedTimer clock;
        clock.start();
        QTest::mouseMove(&fixture.window, place.center().toPoint() + QPoint(1, 1));
        // Not at once.
        QVERIFY(fixture.texts(helpText).isEmpty());
        QTRY_COMPARE(fixture.texts(helpText).size(), 1);
        QVERIFY(clock.elapsed() >= 300);
        const QRectF tip = fixture.place(fixture.texts(helpText)[0]->parentItem());
        QVERIFY(!tip.intersects(place));
        QVERIFY(QRectF(0, 0, 1920, 1080).contains(tip));
        QVERIFY(tip.left() < place.right() && tip.right() > place.left());

        QTest::mouseMove(&fixture.window, QPoint(3, 600));
        QTRY_VERIFY(fixture.texts(helpText).isEmpty());
    }

    void aPointerThatWasThereFirstIsNotTold() {
        WallFixture fixture(2);
        QVERIFY(fixture.waitForCards(2));
        QQuickItem* select = fixture.button("Select");
        const QPoint place = fixture.place(select).center().toPoint();
        // The window comes up below the pointer, which stays where it is.
        QTest::mouseMove(&fixture.window, place);
        QVERIFY(!QTest::qWaitFor([&] { return fixture.text("Select multiple apps"); }, longRest));
        QTest::mouseMove(&fixture.window, place + QPoint(3, 3));
        QTRY_VERIFY(fixture.text("Select multiple apps"));
    }

    void helpIsThereEachTimeThatTheWindowComesUp() {
        WallFixture fixture(2);
        QVERIFY(fixture.waitForCards(2));
        const QPoint place = fixture.place(fixture.button("Select")).center().toPoint();
        for (int round = 0; round < 2; ++round) {
            for (const int step : {0, 3, 6}) {
                QTest::mouseMove(&fixture.window, place + QPoint(step, step));
                QCoreApplication::processEvents();
            }
            QTRY_VERIFY(fixture.text("Select multiple apps"));
            fixture.window.hide();
            QTRY_VERIFY(!fixture.text("Select multiple apps"));
            fixture.window.show();
            QVERIFY(QTest::qWaitForWindowExposed(&fixture.window));
        }
    }

    void aPointerThatPassesIsNotTold() {
        WallFixture fixture(2);
        const QPoint place = fixture.place(fixture.button("Select")).center().toPoint();
        QTest::mouseMove(&fixture.window, place);
        QTest::mouseMove(&fixture.window, place + QPoint(2, 0));
        QTest::mouseMove(&fixture.window, QPoint(3, 600));
        QVERIFY(!QTest::qWaitFor([&] { return fixture.text("Select multiple apps"); }, longRest));
    }

    void theTextChangesWhileItIsShown() {
        WallFixture fixture(2);
        QVERIFY(fixture.waitForCards(2));
        LauncherStore& store = *fixture.store.store;
        store.setIsEditingApps(true);
        store.toggleSelection(store.apps()[0]);
        fixture.settle();
        const QPoint place = fixture.place(fixture.button("Uninstall")).center().toPoint();
        QTest::mouseMove(&fixture.window, place);
        QTest::mouseMove(&fixture.window, place + QPoint(2, 2));
        QTRY_VERIFY(fixture.text("Move selected apps to Trash"));
        store.toggleSelection(store.apps()[0]);
        QVERIFY(!fixture.text("Move selected apps to Trash"));
    }

    void aButtonThatGoesTakesItsTextWithIt() {
        WallFixture fixture(2);
        const QPoint place = fixture.place(fixture.button("Select")).center().toPoint();
        QTest::mouseMove(&fixture.window, place);
        QTest::mouseMove(&fixture.window, place + QPoint(2, 2));
        QTRY_VERIFY(fixture.text("Select multiple apps"));
        fixture.store.store->setIsEditingApps(true);
        QVERIFY(!fixture.text("Select multiple apps"));
    }
};

QTEST_MAIN(HelpAreaTest)
#include "HelpAreaTest.moc"
