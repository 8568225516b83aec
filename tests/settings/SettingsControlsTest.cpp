#include "SettingsOnView.h"
#include "appearance/AppIconStyle.h"
#include "appearance/LauncherBackgroundStyle.h"
#include "appearance/LauncherFontStyle.h"
#include "iconart/ZelmoIconFactory.h"

using namespace zelmo;
using namespace zelmo::test;

namespace {

using Key = PreferenceKey;

// A slider and what is stored by it.
struct SliderRow {
    const char* title;
    int smallest;
    int largest;
    int initial;
    double (*read)(const SettingsFixture& fixture);
};

template <PreferenceKey key>
double readNumber(const SettingsFixture& fixture) {
    return fixture.value<key>();
}

constexpr std::array sliders{
    SliderRow{"Title Size", 24, 42, 32, readNumber<Key::titleFontSize>},
    SliderRow{"Subtitle Size", 10, 18, 12, readNumber<Key::subtitleFontSize>},
    SliderRow{"Search Size", 14, 26, 18, readNumber<Key::searchFontSize>},
    SliderRow{"Tab Size", 11, 18, 14, readNumber<Key::categoryChipFontSize>},
    SliderRow{"App Name Size", 12, 22, 15, readNumber<Key::appNameFontSize>},
    SliderRow{"App Label Size", 9, 16, 11, readNumber<Key::appCategoryFontSize>},
};

} // namespace

// The lists, the sliders, the switch and the icons, by the pointer and by keys, down to what is stored.
class SettingsControlsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyFontCanBePickedByKeys() {
        const SettingsOnView view;
        QVERIFY(view.waitUntilShown());
        QVERIFY(view.focus(QAccessible::ComboBox, "Font"));
        const QQuickItem* picker = view.item(QAccessible::ComboBox, "Font");
        for (int i = 1; i < fontStyleCount; ++i) {
            const auto style = static_cast<LauncherFontStyle>(i);
            view.type({Qt::Key_Down});
            QCOMPARE(view.value<Key::launcherFontStyle>(), rawValue(style));
            QCOMPARE(picker->property("displayText").toString(), title(style));
        }
        view.type({Qt::Key_Down});
        QCOMPARE(view.value<Key::launcherFontStyle>(), text("syne"));
        view.type({Qt::Key_Up});
        QCOMPARE(view.value<Key::launcherFontStyle>(), text("coconat"));
    }

    void theListOfFontsOpensAndPicksByKeys() {
        const SettingsOnView view;
        QVERIFY(view.waitUntilShown());
        QVERIFY(view.focus(QAccessible::ComboBox, "Font"));
        view.type({Qt::Key_Space, Qt::Key_Down, Qt::Key_Down});
        QVERIFY(!view.catalog.preferences->stored<Key::launcherFontStyle>());
        view.type({Qt::Key_Return});
        QCOMPARE(view.value<Key::launcherFontStyle>(), text("newYorkSerif"));
        // Escape leaves it as it was.
        view.type({Qt::Key_Space, Qt::Key_Down, Qt::Key_Escape});
        QCOMPARE(view.value<Key::launcherFontStyle>(), text("newYorkSerif"));
        QVERIFY(view.window().isVisible());
    }

    void everyBackgroundCanBePickedByThePointer() {
        const SettingsOnView view;
        QVERIFY(view.waitUntilShown());
        for (int i = backgroundStyleCount - 1; i >= 0; --i) {
            const auto style = static_cast<LauncherBackgroundStyle>(i);
            QVERIFY(view.click(QAccessible::ComboBox, "Background"));
            QQuickItem* row = nullptr;
            QVERIFY(QTest::qWaitFor([&] { return (row = rowOfTheList(view, title(style))) != nullptr; }));
            QTest::mouseClick(&view.window(), Qt::LeftButton, {}, SettingsOnView::place(*row).center().toPoint());
            QCOMPARE(view.value<Key::launcherBackgroundStyle>(), rawValue(style));
            QCOMPARE(view.item(QAccessible::ComboBox, "Background")->property("displayText").toString(), title(style));
            QVERIFY(QTest::qWaitFor([&] { return rowOfTheList(view, title(style)) == nullptr; }));
            QCOMPARE(view.texts(title(style) + text(" preview")).size(), 1);
        }
    }

    void slidersTakeEachWholePointByKeys() {
        const SettingsOnView view;
        QVERIFY(view.waitUntilShown());
        for (const SliderRow& row : sliders) {
            QVERIFY(view.focus(QAccessible::Slider, row.title));
            int size = row.initial;
            QCOMPARE(numberBeside(view, row.title), size);
            while (size < row.largest) {
                view.type({Qt::Key_Right});
                QCOMPARE(row.read(view), static_cast<double>(++size));
                QCOMPARE(numberBeside(view, row.title), size);
            }
            view.type({Qt::Key_Right, Qt::Key_Up});
            QCOMPARE(row.read(view), static_cast<double>(row.largest));
            while (size > row.smallest) {
                view.type({Qt::Key_Left});
                QCOMPARE(row.read(view), static_cast<double>(--size));
            }
            view.type({Qt::Key_Left, Qt::Key_Down});
            QCOMPARE(row.read(view), static_cast<double>(row.smallest));
            QCOMPARE(numberBeside(view, row.title), row.smallest);
        }
    }

    void slidersAreDraggedFromEndToEndInWholePoints() {
        const SettingsOnView view;
        QVERIFY(view.waitUntilShown());
        for (const SliderRow& row : sliders) {
            const QQuickItem* slider = view.item(QAccessible::Slider, row.title);
            QCOMPARE(slider->width(), 180.0);
            const QRectF place = SettingsOnView::place(*slider);
            const auto at = [&](double share) {
                return QPoint(qRound(place.left() + share * place.width()), qRound(place.center().y()));
            };
            QTest::mousePress(&view.window(), Qt::LeftButton, {}, at(0.5));
            QSet<double> seen;
            for (double share = 0.5; share <= 1.3; share += 0.01) {
                QTest::mouseMove(&view.window(), at(share));
                seen.insert(row.read(view));
            }
            QCOMPARE(row.read(view), static_cast<double>(row.largest));
            for (double share = 1.3; share >= -0.3; share -= 0.01) {
                QTest::mouseMove(&view.window(), at(share));
                seen.insert(row.read(view));
            }
            QCOMPARE(row.read(view), static_cast<double>(row.smallest));
            QTest::mouseRelease(&view.window(), Qt::LeftButton, {}, at(-0.3));
            QCOMPARE(seen.size(), row.largest - row.smallest + 1);
            for (const double value : std::as_const(seen))
                QCOMPARE(value, std::round(value));
        }
    }

    void slidersTellScreenReadersTheirRange() {
        const SettingsOnView view;
        QVERIFY(view.waitUntilShown());
        for (const SliderRow& row : sliders) {
            auto* values = view.control(QAccessible::Slider, text(row.title))->valueInterface();
            QVERIFY(values);
            QCOMPARE(values->minimumValue().toInt(), row.smallest);
            QCOMPARE(values->maximumValue().toInt(), row.largest);
            QCOMPARE(values->minimumStepSize().toInt(), 1);
            QCOMPARE(values->currentValue().toInt(), row.initial);
            values->setCurrentValue(row.largest - 1);
            QCOMPARE(row.read(view), row.largest - 1.0);
        }
    }

    void aStoredSizeOutsideIsShownAtTheEndOfItsRange() {
        const SettingsOnView view({{text("titleFontSize"), 99.0}, {text("subtitleFontSize"), 12.4}});
        QVERIFY(view.waitUntilShown());
        QCOMPARE(numberBeside(view, "Title Size"), 42);
        QCOMPARE(view.item(QAccessible::Slider, "Title Size")->property("value").toDouble(), 42.0);
        QCOMPARE(view.value<Key::titleFontSize>(), 99.0);
        QCOMPARE(view.value<Key::subtitleFontSize>(), 12.4);
        QVERIFY(view.focus(QAccessible::Slider, "Title Size"));
        view.type({Qt::Key_Left});
        QCOMPARE(view.value<Key::titleFontSize>(), 41.0);
    }

    void theSwitchIsThrownByPointerAndKey() {
        const SettingsOnView view;
        QVERIFY(view.waitUntilShown());
        QVERIFY(!view.control(QAccessible::CheckBox, text("App Tile Backgrounds"))->state().checked);
        QVERIFY(view.click(QAccessible::CheckBox, "App Tile Backgrounds"));
        QVERIFY(view.value<Key::showAppTileBackground>());
        QVERIFY(view.control(QAccessible::CheckBox, text("App Tile Backgrounds"))->state().checked);
        QVERIFY(view.focus(QAccessible::CheckBox, "App Tile Backgrounds"));
        view.type({Qt::Key_Space});
        QVERIFY(!view.value<Key::showAppTileBackground>());
        QVERIFY(!view.control(QAccessible::CheckBox, text("App Tile Backgrounds"))->state().checked);
    }

    void eachIconCanBeChosenByPointerAndKeys() {
        const SettingsOnView view;
        QVERIFY(view.waitUntilShown());
        const auto expect = [&](int i) {
            const auto style = static_cast<AppIconStyle>(i);
            QCOMPARE(view.value<Key::appIconStyle>(), rawValue(style));
            for (int other = 0; other < appIconStyleCount; ++other)
                QCOMPARE(
                    view.control(QAccessible::RadioButton, title(static_cast<AppIconStyle>(other)))->state().checked,
                    other == i);
            QCOMPARE(view.application.icons.constLast(),
                     ZelmoIconFactory::appIcon(256, *view.catalog.preferences, style));
        };
        for (const int i : {2, 0, 3, 1, 1}) {
            QVERIFY(view.click(QAccessible::RadioButton, title(static_cast<AppIconStyle>(i)).toLatin1().constData()));
            expect(i);
        }
        QVERIFY(view.focus(QAccessible::RadioButton, "Aurora"));
        view.type({Qt::Key_Right});
        expect(2);
        QVERIFY(view.item(QAccessible::RadioButton, "Stack")->hasActiveFocus());
        view.type({Qt::Key_Right, Qt::Key_Right});
        expect(3);
        view.type({Qt::Key_Left, Qt::Key_Left, Qt::Key_Left, Qt::Key_Left});
        expect(0);
    }

    void theIconsAreDrawnAt54Points() {
        const SettingsOnView view;
        QVERIFY(view.waitUntilShown());
        const auto icons = view.items("zelmo::AppIconCanvasItem");
        QCOMPARE(icons.size(), 4);
        const QImage shown = view.window().grabWindow();
        for (int i = 0; i < 4; ++i) {
            const double margin = icons[i]->property("margin").toDouble();
            QCOMPARE(icons[i]->width() - 2 * margin, 54.0);
            QCOMPARE(icons[i]->height() - 2 * margin, 54.0);
            QCOMPARE(icons[i]->property("style").toInt(), i);
            // Each has its own colours in its top-leading corner, inside the edge.
            const QPoint corner =
                (SettingsOnView::place(*icons[i]).topLeft() + QPointF(margin + 12, margin + 8)).toPoint();
            const QPoint other =
                (SettingsOnView::place(*icons[(i + 1) % 4]).topLeft() + QPointF(margin + 12, margin + 8)).toPoint();
            QVERIFY(shown.pixelColor(corner) != shown.pixelColor(other));
        }
    }

private:
    // A row of a list that is open.
    static QQuickItem* rowOfTheList(const SettingsOnView& view, const QString& title) {
        for (QQuickItem* candidate : view.items("QQuickItemDelegate")) {
            if (candidate->property("text").toString() == title)
                return candidate;
        }
        return nullptr;
    }
    static int numberBeside(const SettingsOnView& view, const char* slider) {
        const auto siblings = view.item(QAccessible::Slider, slider)->parentItem()->childItems();
        return siblings.constLast()->property("text").toInt();
    }
};

QTEST_MAIN(SettingsControlsTest)
#include "SettingsControlsTest.moc"
