#include "soak/ResourceUse.h"
#include "soak/SoakDesktop.h"
#include "soak/SoakLength.h"

#include <QElapsedTimer>

using namespace zelmo::test;

namespace {

constexpr int burstCount = 500;

enum class Wall { hidden, shown, searching };

QString nameOf(int number) {
    return QStringLiteral("Burst %1").arg(number, 3, 10, QLatin1Char('0'));
}

} // namespace

// Hundreds of applications come and go at once.
class BurstSoakTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theWallEndsWithTheRightOnes_data() {
        QTest::addColumn<Wall>("wall");
        QTest::newRow("hidden") << Wall::hidden;
        QTest::newRow("shown") << Wall::shown;
        QTest::newRow("while a search is typed") << Wall::searching;
    }
    void theWallEndsWithTheRightOnes() {
        QFETCH(Wall, wall);
        SoakDesktop desktop;
        desktop.session->installEntry(QStringLiteral("Notes"));
        desktop.session->installEntry(QStringLiteral("Mail"));
        desktop.startProgram();
        QVERIFY(desktop.wall->waitForCards(2));
        if (wall == Wall::hidden)
            QVERIFY(desktop.hide());
        FlatRounds rounds(desktop.process(), soakCount(1, 20));
        for (int round = 0; round < rounds.count(); ++round) {
            const XDisplay& display = desktop.session->display();
            if (wall == Wall::searching)
                QVERIFY(display.typeText(QStringLiteral("bur")) && desktop.wall->waitForCards(0));
            const qsizetype scansBefore = desktop.scans().size();
            QElapsedTimer time;
            time.start();
            for (int i = 0; i < burstCount; ++i) {
                desktop.session->installEntry(nameOf(i));
                if (wall == Wall::searching && i == burstCount / 2)
                    QVERIFY(display.typeText(QStringLiteral("st 49")));
            }
            QVERIFY(desktop.waitForScanThatFinds(burstCount + 2));
            QVERIFY(scannedSeldom(desktop, scansBefore, time));
            if (wall == Wall::hidden)
                QVERIFY(desktop.show());
            if (wall != Wall::searching)
                QVERIFY(display.typeText(QStringLiteral("burst 49")));
            // 490 to 499: a row of six and four in the next.
            QVERIFY(waitForCards(desktop, 6, 4));
            if (wall == Wall::hidden)
                QVERIFY(desktop.hide());

            const qsizetype scansBetween = desktop.scans().size();
            time.start();
            for (int i = 0; i < burstCount; ++i) {
                desktop.removeEntry(nameOf(i));
                if (wall == Wall::searching && i == burstCount / 2)
                    QVERIFY(display.typeKey(backspaceKey));
            }
            QVERIFY(desktop.waitForScanThatFinds(2));
            QVERIFY(scannedSeldom(desktop, scansBetween, time));
            if (wall == Wall::hidden)
                QVERIFY(desktop.show());
            QVERIFY(waitForCards(desktop, 0, 0));
            for (int i = 0; i < 8; ++i)
                display.typeKey(backspaceKey);
            QVERIFY(waitForCards(desktop, 2, 0));
            if (wall == Wall::hidden)
                QVERIFY(desktop.hide());
            QVERIFY(desktop.isRunning());
            rounds.note();
        }
        QCOMPARE(rounds.growth(), QString());
    }

private:
    // One at its end, one every two seconds while it lasts, and one that was on its way before it began.
    static bool scannedSeldom(const SoakDesktop& desktop, qsizetype before, const QElapsedTimer& time) {
        const qsizetype scans = desktop.scans().size() - before;
        const qint64 most = 3 + time.elapsed() / 1000;
        if (scans > most)
            qWarning("%lld scans, and not %lld at most", static_cast<long long>(scans), static_cast<long long>(most));
        return scans <= most;
    }
    // So many in the first row and so many in the second.
    static bool waitForCards(const SoakDesktop& desktop, int first, int second) {
        return DesktopSession::waitFor([&] {
            const QImage screen = desktop.session->display().screenshot();
            return cardsIn(desktop, screen, 0) == first && cardsIn(desktop, screen, 1) == second;
        });
    }
    // By the bright letters of their names.
    static int cardsIn(const SoakDesktop& desktop, const QImage& screen, int row) {
        int cards = 0;
        for (int column = 0; column < 6; ++column) {
            const QPoint center = cardCenter(*desktop.session, column) + QPoint(0, row * rowStep);
            bool isThere = false;
            for (int y = center.y() - 70; y < center.y() + 80 && !isThere; ++y) {
                for (int x = center.x() - 77; x < center.x() + 77 && !isThere; ++x)
                    isThere = qGray(screen.pixel(x, y)) > 200;
            }
            cards += isThere ? 1 : 0;
        }
        return cards;
    }

    static constexpr int rowStep = 176;
};

QTEST_GUILESS_MAIN(BurstSoakTest)
#include "BurstSoakTest.moc"
