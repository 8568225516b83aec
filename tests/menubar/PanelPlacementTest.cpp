#include "menubar/PanelPlacement.h"

#include <QTest>

using namespace zelmo;

class PanelPlacementTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void thePanelStandsBesideTheItemInsideTheWorkArea_data() {
        QTest::addColumn<QRect>("anchor");
        QTest::addColumn<QRect>("workArea");
        QTest::addColumn<QPoint>("corner");
        const auto row = [](const char* name, QRect anchor, QRect workArea, QPoint corner) {
            QTest::newRow(name) << anchor << workArea << corner;
        };
        const QRect screen(0, 0, 1280, 800);
        const QRect belowBar(0, 30, 1280, 770);
        row("below a bar at the top", {600, 4, 22, 22}, belowBar, {464, 36});
        row("below a point in it", {611, 15, 0, 0}, belowBar, {464, 36});
        row("not beyond the right edge", {1250, 4, 22, 22}, belowBar, {980, 36});
        row("nor beyond the left one", {4, 4, 22, 22}, belowBar, {6, 36});
        row("above a bar at the bottom", {600, 774, 22, 22}, {0, 0, 1280, 770}, {464, 484});
        row("right of a bar at the left", {4, 400, 22, 22}, {30, 0, 1250, 800}, {36, 271});
        row("left of a bar at the right", {1254, 400, 22, 22}, {0, 0, 1250, 800}, {950, 271});
        row("not below the lower edge", {4, 790, 22, 8}, {30, 0, 1250, 800}, {36, 514});
        row("below where no bar is told of", {600, 4, 22, 22}, screen, {464, 32});
        row("above where there is no room below", {600, 770, 22, 22}, screen, {464, 484});
        row("beside where there is room on neither side", {900, 100, 22, 600}, screen, {600, 260});
        row("on another screen", {2000, 4, 22, 22}, {1280, 30, 1280, 770}, {1864, 36});
    }
    void thePanelStandsBesideTheItemInsideTheWorkArea() {
        QFETCH(QRect, anchor);
        QFETCH(QRect, workArea);
        QFETCH(QPoint, corner);
        const QPoint place = panelPosition({.anchor = anchor, .screen = {}, .workArea = workArea}, {294, 280}, 6);
        QCOMPARE(place, corner);
        QVERIFY(workArea.contains(QRect(place, QSize(294, 280))));
    }

    void aPanelLargerThanTheWorkAreaBeginsInside() {
        QCOMPARE(
            panelPosition({.anchor = {100, 0, 20, 20}, .screen = {}, .workArea = {10, 20, 200, 200}}, {294, 280}, 6),
            QPoint(10, 20));
    }
};

QTEST_GUILESS_MAIN(PanelPlacementTest)
#include "PanelPlacementTest.moc"
