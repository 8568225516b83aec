#include "MenuBarFixture.h"

using namespace zelmo;
using namespace zelmo::test;

namespace {

const QStringList buttons{QStringLiteral("Show App Wall"), QStringLiteral("Refresh Apps"), QStringLiteral("Settings"),
                          QStringLiteral("Quit Zelmo")};

} // namespace

// How the panel's buttons answer to a press, slowly or at once.
class PanelMotionTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aPressIsSeenSlowly() {
        MenuBarFixture fixture;
        MenuBarPanelWindow& window = fixture.open();
        for (const QString& title : buttons) {
            const QQuickItem* button = fixture.control(title);
            QTest::mousePress(&window, Qt::LeftButton, {}, fixture.center(button));
            QVERIFY2(button->scale() > 0.985 && button->opacity() > 0.88, qPrintable(title));
            QTRY_COMPARE(button->scale(), 0.985);
            QTRY_COMPARE(button->opacity(), 0.88);
            QTest::mouseRelease(&window, Qt::LeftButton, {}, QPoint(1, 1));
            QTRY_COMPARE(button->opacity(), 1.0);
        }
    }

    void aPressIsSeenAtOnceByWhoWantsLessMovement() {
        MenuBarFixture fixture;
        fixture.reducesMotion = true;
        MenuBarPanelWindow& window = fixture.open();
        for (const QString& title : buttons) {
            const QQuickItem* button = fixture.control(title);
            QTest::mousePress(&window, Qt::LeftButton, {}, fixture.center(button));
            QCOMPARE(button->scale(), 0.985);
            QCOMPARE(button->opacity(), 0.88);
            QTest::mouseRelease(&window, Qt::LeftButton, {}, QPoint(1, 1));
            QCOMPARE(button->scale(), 1.0);
            QCOMPARE(button->opacity(), 1.0);
        }
    }

    void theWishIsHeardEachTimeThatThePanelOpens() {
        MenuBarFixture fixture;
        MenuBarPanelWindow& window = fixture.open();
        const QQuickItem* button = fixture.control(buttons[1]);
        for (const bool reduces : {true, false, true}) {
            QTest::keyClick(&window, Qt::Key_Escape);
            fixture.reducesMotion = reduces;
            fixture.open();
            QTest::mousePress(&window, Qt::LeftButton, {}, fixture.center(button));
            QCOMPARE(button->scale() == 0.985, reduces);
            QTest::mouseRelease(&window, Qt::LeftButton, {}, QPoint(1, 1));
            QTRY_COMPARE(button->scale(), 1.0);
        }
    }
};

QTEST_MAIN(PanelMotionTest)
#include "PanelMotionTest.moc"
