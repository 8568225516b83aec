#include "ui/TilePalette.h"

#include "support/EndsTheProgram.h"
#include "ui/SceneReading.h"

#include <QTest>

#include <limits>

using namespace zelmo;
using namespace zelmo::test;

class TilePaletteTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void thereAreSevenFills() {
        const QList<TileFill> fills{
            {rgb(0.18, 0.55, 0.58), rgb(0.1, 0.42, 0.49)},  {rgb(0.43, 0.39, 0.72), rgb(0.31, 0.29, 0.58)},
            {rgb(0.31, 0.62, 0.47), rgb(0.22, 0.5, 0.38)},  {rgb(0.72, 0.34, 0.49), rgb(0.58, 0.24, 0.42)},
            {rgb(0.78, 0.48, 0.28), rgb(0.66, 0.36, 0.22)}, {rgb(0.25, 0.57, 0.67), rgb(0.16, 0.45, 0.58)},
            {rgb(0.54, 0.34, 0.65), rgb(0.43, 0.26, 0.55)}};
        QCOMPARE(tileFillCount, 7);
        for (int i = 0; i < 7; ++i) {
            QCOMPARE(said(tileFill(i).start), said(fills[i].start));
            QCOMPARE(said(tileFill(i).end), said(fills[i].end));
        }
        QVERIFY(endsTheProgram([] { tileFill(7); }));
        QVERIFY(endsTheProgram([] { tileFill(-1); }));
        QVERIFY(!endsTheProgram([] { tileFill(6); }));
    }

    void theHashChoosesTheFill_data() {
        QTest::addColumn<qint64>("hash");
        QTest::addColumn<int>("index");
        QTest::newRow("nothing") << qint64(0) << 0;
        QTest::newRow("the last") << qint64(6) << 6;
        QTest::newRow("the first again") << qint64(7) << 0;
        QTest::newRow("more") << qint64(20) << 6;
        QTest::newRow("the largest") << std::numeric_limits<qint64>::max() << 0;
        QTest::newRow("a negative one") << qint64(-1) << 1;
        QTest::newRow("another negative one") << qint64(-20) << 6;
        QTest::newRow("all but the most negative") << -std::numeric_limits<qint64>::max() << 0;
    }
    void theHashChoosesTheFill() {
        QFETCH(qint64, hash);
        QTEST(tileFillIndex(hash), "index");
    }

    void theMostNegativeHashEndsTheProgram() {
        QVERIFY(endsTheProgram([] { tileFillIndex(std::numeric_limits<qint64>::min()); }));
    }

    void aNameKeepsItsFill() {
        QSet<QRgb> starts;
        for (int i = 0; i < 200; ++i) {
            const QString name = QStringLiteral("App %1").arg(i);
            const TileFill fill = lumiaTileFill(name);
            QVERIFY(fill == lumiaTileFill(QStringLiteral("App ") + QString::number(i)));
            starts.insert(fill.start.rgb());
        }
        QCOMPARE(starts.size(), 7);
    }
};

QTEST_APPLESS_MAIN(TilePaletteTest)
#include "TilePaletteTest.moc"
