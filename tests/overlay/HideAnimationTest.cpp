#include "overlay/HideAnimation.h"

#include <QGuiApplication>
#include <QScreen>
#include <QTest>

using namespace zelmo;

class HideAnimationTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    // Known points of the curve with the control points (0.42, 0) and (0.58, 1).
    void itEasesInAndOut() {
        QCOMPARE(HideAnimation::progressAt(0), 0.0);
        QCOMPARE(HideAnimation::progressAt(1), 1.0);
        QVERIFY(std::abs(HideAnimation::progressAt(0.5) - 0.5) < 0.001);
        QVERIFY(std::abs(HideAnimation::progressAt(0.25) - 0.1292) < 0.001);
        QVERIFY(std::abs(HideAnimation::progressAt(0.75) - 0.8708) < 0.001);
        QCOMPARE(HideAnimation::progressAt(7), 1.0);
    }

    void thePictureIsDrawnAtEverySize() {
        CollapseWindow window;
        QImage picture(800, 600, QImage::Format_RGB32);
        picture.fill(Qt::red);
        for (int x = 400; x < 800; ++x) {
            for (int y = 0; y < 600; ++y)
                picture.setPixel(x, y, qRgb(0, 0, 255));
        }
        window.setPicture(picture);
        for (const QSize size : {QSize(800, 600), QSize(500, 300), QSize(300, 200), QSize(76, 18)}) {
            window.setGeometry(QRect(QPoint(), size));
            window.show();
            QVERIFY(QTest::qWaitForWindowExposed(&window));
            QImage seen;
            QTRY_VERIFY((seen = window.screen()->grabWindow(window.winId()).toImage(), seen.size() == size));
            QCOMPARE(seen.pixelColor(size.width() / 4, size.height() / 2), QColor(Qt::red));
            QCOMPARE(seen.pixelColor(3 * size.width() / 4, size.height() / 2), QColor(Qt::blue));
        }
    }

    void theTimeRunsOnWithoutThePicture() {
        HideAnimation animation;
        QImage picture(100, 100, QImage::Format_RGB32);
        picture.fill(Qt::red);
        int completed = 0;
        animation.start(picture, QGuiApplication::primaryScreen(), QRect(0, 0, 100, 100), QRect(40, 4, 76, 18),
                        [&] { ++completed; });
        QVERIFY(animation.isRunning());
        animation.dropPicture();
        QVERIFY(animation.isRunning());
        QCOMPARE(completed, 0);
        QTRY_COMPARE(completed, 1);
        QVERIFY(!animation.isRunning());
    }

    void itCanStartAgainAsItCompletes() {
        HideAnimation animation;
        int completed = 0;
        animation.startUnseen([&] {
            ++completed;
            animation.startUnseen([&] { ++completed; });
        });
        QTRY_COMPARE(completed, 2);
    }
};

QTEST_MAIN(HideAnimationTest)
#include "HideAnimationTest.moc"
