#include "SettingsOnView.h"
#include "appearance/AppIconStyle.h"
#include "appearance/LauncherBackgroundStyle.h"
#include "appearance/LauncherFontStyle.h"
#include "appearance/LauncherInterfaceStyle.h"
#include "iconart/ZelmoIconFactory.h"

#include <QEasingCurve>
#include <QtQml/qqmlextensionplugin.h>

Q_IMPORT_QML_PLUGIN(Zelmo_UiPlugin)

using namespace zelmo;
using namespace zelmo::test;

namespace {

using Key = PreferenceKey;

QString text(const char* latin1) {
    return QString::fromLatin1(latin1);
}

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

// Every control of the settings, by the pointer and by keys, down to what is stored.
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

    void theShortcutRowStepsByPointerAndKeys() {
        const SettingsOnView view;
        QVERIFY(view.waitUntilShown());
        const auto shortcut = [&] { return view.value<Key::launcherKeyboardShortcut>(); };
        const auto shown = [&] {
            return view.control(QAccessible::Button, text("Launcher Shortcut"))->text(QAccessible::Description);
        };
        QCOMPARE(shown(), text("Option + Space"));
        QVERIFY(view.click(QAccessible::Button, "Launcher Shortcut"));
        QCOMPARE(shortcut(), text("controlSpace"));
        QCOMPARE(shown(), text("Control + Space"));
        QVERIFY(view.focus(QAccessible::Button, "Launcher Shortcut"));
        view.type({Qt::Key_Space});
        QCOMPARE(shortcut(), text("commandSpace"));
        QCOMPARE(shown(), text("Command + Space"));
        view.type({Qt::Key_Return});
        QCOMPARE(shortcut(), text("off"));
        QCOMPARE(shown(), text("Off"));
        QCOMPARE(view.texts(text("Shortcut is off.")).size(), 1);
        view.type({Qt::Key_Enter});
        QCOMPARE(shortcut(), text("optionSpace"));
        QCOMPARE(view.texts(text("Option + Space")).size(), 1);
        QCOMPARE(view.texts(text("Option + Space is assigned to Zelmo.")).size(), 1);
        QCOMPARE(view.hotKeyLog.filter(QRegularExpression(text("^register"))).size(), 3);
    }

    void aFailureIsOrangeUntilItIsOver() {
        SettingsOnView view;
        QVERIFY(view.waitUntilShown());
        const auto colorOf = [&](const char* status) {
            const auto found = view.texts(text(status));
            return found.size() == 1 ? found[0]->property("color").value<QColor>() : QColor();
        };
        const QColor secondary = colorOf("Tap three times to preview upcoming layouts.");
        QVERIFY(secondary.isValid());
        QCOMPARE(colorOf("Option + Space is assigned to Zelmo."), secondary);
        QVERIFY(!checkmarkIsShown(view));
        view.hotKeyService.answer = FakeHotKeyService::Answer::refuse;
        QVERIFY(view.click(QAccessible::Button, "Use Control + Space"));
        QCOMPARE(view.value<Key::launcherKeyboardShortcut>(), text("controlSpace"));
        const QColor failure =
            colorOf("Could not assign Control + Space. Quit the old launcher or remove its shortcut, then try again.");
        QVERIFY(failure.isValid());
        QVERIFY(failure != secondary);
        QVERIFY(failure.hsvHue() > 15 && failure.hsvHue() < 45);
        QVERIFY(checkmarkIsShown(view));
        view.hotKeyService.answer = FakeHotKeyService::Answer::accept;
        QVERIFY(view.focus(QAccessible::Button, "Use Control + Space"));
        view.type({Qt::Key_Space});
        QCOMPARE(colorOf("Control + Space is assigned to Zelmo."), secondary);
    }

    void theBadgesHaveTheirGradientsAndSymbols() {
        const SettingsOnView view;
        QVERIFY(view.waitUntilShown());
        struct Badge {
            const char* button;
            const char* symbol;
            double side;
            int weight;
            QList<QColor> colors;
        };
        const QList<Badge> badges{{"Use Control + Space",
                                   "keyboard.fill",
                                   12 * 1.25,
                                   QFont::DemiBold,
                                   {QColor::fromRgbF(0.38F, 0.61F, 1), QColor::fromRgbF(0.38F, 0.88F, 0.76F)}},
                                  {"Coming Soon",
                                   "sparkles",
                                   13 * 1.25,
                                   QFont::Black,
                                   {QColor::fromRgbF(1, 0.74F, 0.34F), QColor::fromRgbF(0.98F, 0.44F, 0.48F)}}};
        for (const Badge& badge : badges) {
            QQuickItem* symbol = nullptr;
            for (QQuickItem* candidate : view.items("zelmo::SymbolItem")) {
                if (candidate->property("name").toString() == text(badge.symbol))
                    symbol = candidate;
            }
            QVERIFY(symbol);
            QCOMPARE(symbol->width(), badge.side);
            QCOMPARE(symbol->property("weight").toInt(), badge.weight);
            const QQuickItem* circle = symbol->parentItem();
            QCOMPARE(circle->size(), QSizeF(28, 28));
            QCOMPARE(circle->property("radius").toDouble(), 14.0);
            QCOMPARE(circle->property("colors").value<QList<QColor>>(), badge.colors);
            QVERIFY(SettingsOnView::place(*view.item(QAccessible::Button, badge.button))
                        .contains(SettingsOnView::place(*circle)));
        }
    }

    void hiddenAppsComeBackByPointerAndKeys() {
        SettingsOnView view;
        QVERIFY(view.waitUntilShown());
        QCOMPARE(view.texts(text("No apps are hidden from Zelmo.")).size(), 1);
        view.set<Key::hiddenAppPaths>({text("/Applications/Chess.app")});
        QCOMPARE(view.texts(text("1 hidden app can be restored.")).size(), 1);
        QVERIFY(view.click(QAccessible::Button, "Restore Hidden Apps"));
        QVERIFY(view.value<Key::hiddenAppPaths>().isEmpty());
        QCOMPARE(view.texts(text("No apps are hidden from Zelmo.")).size(), 1);
        view.set<Key::hiddenAppPaths>({text("/Applications/Chess.app"), text("/Applications/Mail.app")});
        QCOMPARE(view.texts(text("2 hidden apps can be restored.")).size(), 1);
        QVERIFY(view.focus(QAccessible::Button, "Restore Hidden Apps"));
        view.type({Qt::Key_Return});
        QVERIFY(view.value<Key::hiddenAppPaths>().isEmpty());
    }

    void theThirdTapRevealsTheInterfaces() {
        const SettingsOnView view;
        QVERIFY(view.waitUntilShown());
        const auto extras = [&] { return view.control(QAccessible::Grouping, text("Interface")); };
        const auto number = [&] {
            return view.control(QAccessible::Button, text("Coming Soon"))->text(QAccessible::Description);
        };
        for (const char* needed : {"3", "2", "1"}) {
            QVERIFY(!extras());
            QCOMPARE(number(), text(needed));
            QCOMPARE(view.texts(text("Tap three times to preview upcoming layouts.")).size(), 1);
            QVERIFY(view.click(QAccessible::Button, "Coming Soon"));
        }
        QVERIFY(QTest::qWaitFor([&] { return extras() != nullptr; }));
        QVERIFY(view.texts(text("Tap three times to preview upcoming layouts.")).isEmpty());
        QCOMPARE(view.texts(text("Tap Coming Soon three times to reveal these playful previews.")).size(), 1);
        QCOMPARE(view.texts(text("Unlocked")).size(), 1);
        QVERIFY(std::ranges::any_of(view.items("zelmo::SymbolItem"), [](const QQuickItem* symbol) {
            return symbol->property("name").toString() == QLatin1StringView("wand.and.stars");
        }));
        QVERIFY(view.click(QAccessible::Button, "Experimental Interfaces"));
        QVERIFY(extras());
    }

    void theInterfacesAppearSlowlyAtBothEnds() {
        const SettingsOnView view;
        QVERIFY(view.waitUntilShown());
        for (int i = 0; i < 3; ++i)
            QVERIFY(view.click(QAccessible::Button, "Coming Soon"));
        QObject* animation = nullptr;
        for (QObject* candidate : view.window().view()->findChildren<QObject*>()) {
            if (candidate->inherits("QQuickNumberAnimation") &&
                candidate->property("properties").toString().isEmpty() &&
                candidate->property("duration").toInt() == 180)
                animation = candidate;
        }
        QVERIFY(animation);
        const auto curve = animation->property("easing").value<QEasingCurve>();
        QCOMPARE(curve.type(), QEasingCurve::BezierSpline);
        QVERIFY(curve.valueForProgress(0.1) < 0.05);
        QVERIFY(curve.valueForProgress(0.9) > 0.95);
        QVERIFY(std::abs(curve.valueForProgress(0.5) - 0.5) < 0.01);
        QVERIFY(waitUntilRevealed(view));
    }

    void eachInterfaceCanBePickedByPointerAndKeys() {
        const SettingsOnView view;
        QVERIFY(view.waitUntilShown());
        for (int i = 0; i < 3; ++i)
            QVERIFY(view.click(QAccessible::Button, "Coming Soon"));
        QVERIFY(waitUntilRevealed(view));
        const auto expect = [&](int i) {
            QCOMPARE(view.value<Key::launcherInterfaceStyle>(), rawValue(static_cast<LauncherInterfaceStyle>(i)));
            for (int other = 0; other < interfaceStyleCount; ++other) {
                const QString name = title(static_cast<LauncherInterfaceStyle>(other));
                QCOMPARE(view.control(QAccessible::RadioButton, name)->state().checked, other == i);
            }
        };
        for (const int i : {3, 2, 1, 0, 2, 2}) {
            const QString name = title(static_cast<LauncherInterfaceStyle>(i));
            QVERIFY(view.click(QAccessible::RadioButton, name.toLatin1().constData()));
            expect(i);
        }
        QVERIFY(view.focus(QAccessible::RadioButton, "Minimal"));
        view.type({Qt::Key_Right});
        expect(3);
        view.type({Qt::Key_Right, Qt::Key_Left, Qt::Key_Left});
        expect(1);
        view.type({Qt::Key_Left, Qt::Key_Left});
        expect(0);
    }

private:
    // All of it is there in the end.
    static bool waitUntilRevealed(const SettingsOnView& view) {
        return QTest::qWaitFor([&] {
            const auto captions = view.texts(text("Tap Coming Soon three times to reveal these playful previews."));
            if (captions.size() != 1)
                return false;
            const QQuickItem* extras = captions[0]->parentItem()->parentItem();
            return extras->height() > 0 && extras->parentItem()->height() == extras->height();
        });
    }
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
    // From the pixels.
    static QColor colorInTheWell(const SettingsOnView& view, const char* title) {
        const QPoint center = SettingsOnView::place(*view.item(QAccessible::Button, title)).center().toPoint();
        return QColor(view.window().grabWindow().pixelColor(center).rgb());
    }
    static bool checkmarkIsShown(const SettingsOnView& view) {
        return std::ranges::any_of(view.items("zelmo::SymbolItem"), [](const QQuickItem* symbol) {
            const QColor color = symbol->property("color").value<QColor>();
            return symbol->property("name").toString() == QLatin1StringView("checkmark.circle.fill") &&
                   color.hsvHue() > 90 && color.hsvHue() < 150;
        });
    }
};

QTEST_MAIN(SettingsControlsTest)
#include "SettingsControlsTest.moc"
