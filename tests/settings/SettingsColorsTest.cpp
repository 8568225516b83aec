#include "SettingsOnView.h"

using namespace zelmo;
using namespace zelmo::test;

namespace {

using Key = PreferenceKey;

} // namespace

// The colours and their picker, by the pointer and by keys, down to what is stored.
class SettingsColorsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theBackgroundColorIsEnabledForACustomColorOnly() {
        SettingsOnView view({{text("launcherBackgroundRed"), 1.0}, {text("launcherBackgroundGreen"), 0.0}});
        QVERIFY(view.waitUntilShown());
        const auto isEnabled = [&] { return view.item(QAccessible::Button, "Background Color")->isEnabled(); };
        QVERIFY(!isEnabled());
        QCOMPARE(colorInTheWell(view, "Background Color").rgb(), QColor::fromRgbF(1, 0, 0.14F).rgb());
        QVERIFY(view.click(QAccessible::Button, "Background Color"));
        QVERIFY(!view.control(QAccessible::Slider, text("Hue")));
        view.set<Key::launcherBackgroundStyle>(text("customColor"));
        QVERIFY(isEnabled());
        QCOMPARE(colorInTheWell(view, "Background Color").rgb(), QColor::fromRgbF(1, 0, 0.14F).rgb());
        QVERIFY(view.click(QAccessible::Button, "Background Color"));
        QVERIFY(view.control(QAccessible::Slider, text("Hue")));
        // The background may change elsewhere meanwhile.
        view.set<Key::launcherBackgroundStyle>(text("linen"));
        QVERIFY(QTest::qWaitFor([&] { return !view.control(QAccessible::Slider, text("Hue")); }));
    }

    void aColorIsPickedByKeysOnly() {
        const SettingsOnView view({{text("launcherBackgroundStyle"), text("customColor")}});
        QVERIFY(view.waitUntilShown());
        QVERIFY(view.focus(QAccessible::Button, "Background Color"));
        view.type({Qt::Key_Return});
        QVERIFY(QTest::qWaitFor([&] { return view.control(QAccessible::Slider, text("Hue")) != nullptr; }));
        const auto code = [&] {
            return view.control(QAccessible::Button, text("Background Color"))->text(QAccessible::Description);
        };
        QCOMPARE(code(), text("#0d1424"));
        // The field of tones first: brighter, then stronger.
        for (int i = 0; i < 60; ++i)
            view.type({Qt::Key_Up, Qt::Key_Right});
        QCOMPARE(code(), text("#0055ff"));
        QCOMPARE(
            view.control(QAccessible::ColorChooser, text("Saturation and brightness"))->text(QAccessible::Description),
            text("Saturation 100%, brightness 100%"));
        for (int i = 0; i < 25; ++i)
            view.type({Qt::Key_Left});
        QVERIFY(qAbs(view.value<Key::launcherBackgroundRed>() - 0.5) < 0.01);
        for (int i = 0; i < 25; ++i)
            view.type({Qt::Key_Down});
        QVERIFY(qAbs(view.value<Key::launcherBackgroundBlue>() - 0.5) < 0.01);
        // Then the hue.
        view.type({Qt::Key_Tab});
        for (int i = 0; i < 360; ++i)
            view.type({Qt::Key_Left});
        QVERIFY(view.value<Key::launcherBackgroundRed>() > view.value<Key::launcherBackgroundBlue>());
        QCOMPARE(view.value<Key::launcherBackgroundGreen>(), view.value<Key::launcherBackgroundBlue>());
        // Then the number, which is selected.
        view.type({Qt::Key_Tab});
        for (const char letter : {'#', '3', '3', '6', '6', '9', '9'})
            QTest::keyClick(&view.window(), letter);
        view.type({Qt::Key_Return});
        QCOMPARE(view.value<Key::launcherBackgroundRed>(), 0.2);
        QCOMPARE(view.value<Key::launcherBackgroundGreen>(), 0.4);
        QCOMPARE(view.value<Key::launcherBackgroundBlue>(), 0.6);
        QTest::keyClick(&view.window(), 'x');
        view.type({Qt::Key_Return});
        QCOMPARE(code(), text("#336699"));
        QCOMPARE(view.item(QAccessible::EditableText, "Color code")->property("text").toString(), text("#336699"));
        // Escape closes the picker, not the window, and the keyboard goes back to where it was.
        view.type({Qt::Key_Escape});
        QVERIFY(QTest::qWaitFor([&] { return !view.control(QAccessible::Slider, text("Hue")); }));
        QVERIFY(view.window().isVisible());
        QVERIFY(view.item(QAccessible::Button, "Background Color")->hasActiveFocus());
        QVERIFY(!view.catalog.preferences->stored<Key::launcherTextRed>());
    }

    void aColorIsPickedByThePointer() {
        const SettingsOnView view;
        QVERIFY(view.waitUntilShown());
        QVERIFY(view.click(QAccessible::Button, "App Text Color"));
        const QQuickItem* field = view.item(QAccessible::ColorChooser, "Saturation and brightness");
        const QRectF place = SettingsOnView::place(*field);
        const auto press = [&](QPointF point) {
            QTest::mouseClick(&view.window(), Qt::LeftButton, {}, point.toPoint());
        };
        // Grey has three equal values.
        press({place.left(), place.center().y()});
        QVERIFY(qAbs(view.value<Key::launcherTextRed>() - 0.5) < 0.01);
        QCOMPARE(view.value<Key::launcherTextGreen>(), view.value<Key::launcherTextRed>());
        QCOMPARE(view.value<Key::launcherTextBlue>(), view.value<Key::launcherTextRed>());
        // Dragged beyond its corner, the field gives the full colour.
        QTest::mousePress(&view.window(), Qt::LeftButton, {}, place.center().toPoint());
        QTest::mouseMove(&view.window(), (place.topRight() + QPointF(20, -10)).toPoint());
        QTest::mouseRelease(&view.window(), Qt::LeftButton, {}, (place.topRight() + QPointF(20, -10)).toPoint());
        QCOMPARE(view.value<Key::launcherTextRed>(), 1.0);
        QCOMPARE(view.value<Key::launcherTextBlue>(), 0.0);
        const QRectF hues = SettingsOnView::place(*view.item(QAccessible::Slider, "Hue"));
        press({hues.left() + 8 + (hues.width() - 16) * 2 / 3, hues.center().y()});
        QVERIFY(view.value<Key::launcherTextBlue>() > 0.99);
        QVERIFY(view.value<Key::launcherTextRed>() < 0.05);
        QVERIFY(!view.catalog.preferences->stored<Key::launcherBackgroundRed>());
        // Pressing elsewhere closes it.
        press({20, 20});
        QVERIFY(QTest::qWaitFor([&] { return !view.control(QAccessible::Slider, text("Hue")); }));
        // And so does the well.
        QVERIFY(view.click(QAccessible::Button, "App Text Color"));
        QVERIFY(view.control(QAccessible::Slider, text("Hue")));
        QVERIFY(view.click(QAccessible::Button, "App Text Color"));
        QVERIFY(QTest::qWaitFor([&] { return !view.control(QAccessible::Slider, text("Hue")); }));
    }

private:
    // From the pixels.
    static QColor colorInTheWell(const SettingsOnView& view, const char* title) {
        const QPoint center = SettingsOnView::place(*view.item(QAccessible::Button, title)).center().toPoint();
        return QColor(view.window().grabWindow().pixelColor(center).rgb());
    }
};

QTEST_MAIN(SettingsColorsTest)
#include "SettingsColorsTest.moc"
